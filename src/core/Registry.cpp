// SPDX-License-Identifier: MIT
// Preferences on the platform's settings tree.
#include "core/Registry.h"

#include "platform/Settings.h"

namespace torvane {

namespace {
std::string path(const Registry& at) { return at.Appname + "/" + at.Section + "/" + at.Key; }
}  // namespace

void Registry::RegGet() { Setting = host<Settings>().setting(path(*this)); }

void Registry::RegSave() const { host<Settings>().saveSetting(path(*this), Setting); }

void Registry::RegDel() const { host<Settings>().deleteSetting(path(*this)); }

}  // namespace torvane
