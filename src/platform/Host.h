// SPDX-License-Identifier: MIT
// The machine, as the program sees it: clock, events, windows, boxes, settings, ports. One object, set at
// start.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/RuntimeError.h"
#include "platform/SerialPort.h"

class Form;

enum class Icon { none, information, critical, question };
enum class Buttons { ok, yesNo };
enum class Answer { ok, yes, no };

class Host {
 public:
  virtual ~Host() = default;

  // Seconds since midnight of the day on which the program was started; never runs backward.
  virtual double now() = 0;
  // Serves pending window events and returns at once.
  virtual void yield() = 0;
  // Serves window events; sleeps while there are none, for at most so many seconds.
  virtual void idle(double seconds) = 0;

  virtual void show(Form& form, bool modal) = 0;
  virtual void hide(Form& form) = 0;
  virtual void release(Form& form) = 0;  // the form is about to end: its window goes
  virtual void centre(Form& form) = 0;
  virtual void repaint(Form& form) = 0;

  // A carriage return in the text is a line end.
  virtual Answer messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) = 0;
  virtual void beep() = 0;

  // The per-user settings tree; a missing key gives an empty text.
  virtual std::string setting(const std::string& path) = 0;
  virtual void saveSetting(const std::string& path, const std::string& value) = 0;
  virtual void deleteSetting(const std::string& path) = 0;

  virtual std::unique_ptr<SerialPort> makeSerialPort() = 0;
  // Which device "COM n" is, and what may keep it from being opened, in words for a tool tip.
  virtual std::string serialPortHint(int commPort) = 0;
  virtual std::string programFolder() = 0;
  virtual bool fileExists(const std::string& path) = 0;

  // An error that nothing caught: shows the system's words and ends the program with a non-zero status.
  virtual void fail(const std::string& description) = 0;
};

Host& host();
void setHost(Host* host);

// A plain box under the program's title.
Answer messageBox(std::string_view text, std::string_view title = "", Icon icon = Icon::none,
                  Buttons buttons = Buttons::ok);
