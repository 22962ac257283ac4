// SPDX-License-Identifier: MIT
// The setup of the main window as a file: what the choosers do with one, and what is left of a program that
// had to end.
#pragma once

#include <string>
#include <vector>

namespace torvane {

// Examines the file first. What can't be read is refused in a box, what is no setup is asked about; false:
// nothing has changed, and the user may choose another.
bool openConfiguration(const std::string& path);
// The same for a file that was dropped on the window or named at the start: nothing warns while it fills the
// boxes, and what the tab on show holds is committed first.
void openNamed(const std::string& path);
// The bytes of the setup on show, which is committed by it.
std::string presentConfiguration();
// What can't be written is refused in a box; false: the setup and the file's name are as they were.
bool saveConfiguration(const std::string& path);
// Asks for the name first, and proposes the open file's, or the model and the day; nothing happens without
// one.
void saveConfigurationAs();

// The files opened or saved last that are still there, the newest first; at most eight.
std::vector<std::string> recentFiles();

// Keeps the present setup in the user's data folder. Gives what to say of it, nothing where it could not be
// kept; never fails.
std::string keepForRescue();
// Offers a setup that was kept so, once: it stays under another name, opened or not.
void offerRescue();

}  // namespace torvane
