// SPDX-License-Identifier: MIT
// The machine, as the program sees it: clock, events, windows, boxes, settings, ports, files, printer, help.
// One object, set at start.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Printer.h"
#include "platform/RuntimeError.h"
#include "platform/SerialPort.h"
#include "platform/Socket.h"

namespace torvane {

class Form;

enum class Icon { none, information, critical, question };
enum class Buttons { ok, yesNo, noYes };  // noYes: the button that Enter presses is No
enum class Answer { ok, yes, no };

class Host {
 public:
  virtual ~Host() = default;

  // Seconds since midnight of the day on which the program was started; never runs backward.
  virtual double now() = 0;
  // Serves pending window events and returns at once.
  virtual void yield() = 0;
  // Serves window events; sleeps while there are none, for at most this many seconds.
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
  virtual std::unique_ptr<Socket> makeSocket() = 0;

  // File choosers with a filter such as "Texts (*.txt)|*.txt|All Files (*.*)|*.*"; empty: the user has
  // cancelled. The folder of the last choice is offered again. Saving over a file has been agreed to by the
  // user.
  virtual std::string chooseFileToOpen(const std::string& filter) = 0;
  virtual std::string chooseFileToSave(const std::string& filter) = 0;
  // The same with a name for the file that the user may keep.
  virtual std::string proposeFileToSave(const std::string& filter, const std::string& name) = 0;
  // At most so many bytes from the file's start. A file that can't be read is a RuntimeError in the system's
  // words.
  virtual std::string readFile(const std::string& path, std::size_t most) = 0;
  // Writes over a file from its start, in one step: what fails leaves the old file whole and is a
  // RuntimeError in the system's words. What an older, longer file holds after the new bytes stays.
  virtual void exchangeFile(const std::string& path, std::string_view bytes) = 0;
  // Writes a file anew, in one step: nothing of an older one stays. What fails is a RuntimeError in the
  // system's words, and leaves the old file whole.
  virtual void replaceFile(const std::string& path, std::string_view bytes) = 0;
  // Texts in the machine's single-byte code page; Windows-1252 unless the machine has one of its own.
  virtual std::string toCodePage(std::string_view text);
  virtual std::string fromCodePage(std::string_view bytes);
  virtual bool fileExists(const std::string& path) = 0;
  virtual void renameFile(const std::string& from, const std::string& to) = 0;
  // Where the user's own data of this program lies; made if need be.
  virtual std::string dataFolder() = 0;
  virtual std::string programFolder() = 0;

  virtual void copyText(std::string_view text) = 0;  // onto the clipboard

  // The printer chooser, set to the default printer; a cancel is a RuntimeError. The document's name, which
  // may be a file's path, is what the queue shows.
  virtual std::unique_ptr<Printer> choosePrinter(const std::string& document) = 0;
  // A document that becomes a PDF file when it ends.
  virtual std::unique_ptr<Printer> makePdf(const std::string& path);
  // "2026-03-01" in the form of the user's locale.
  virtual std::string today() = 0;
  // "2026-03-01T09:30:00Z": now, UTC.
  virtual std::string utcNow() = 0;

  // `path` is a help file's name, ">" and a window's name. A name that is not known opens nothing.
  virtual void showHelp(const std::string& path) = 0;

  // An error that nothing caught: shows the system's words and ends the program with a non-zero status.
  virtual void fail(const std::string& description) = 0;
  // Called before the box of `fail`; keeps what must not be lost, and gives what the box says of it.
  std::function<std::string()> beforeTheEnd;
};

Host& host();
void setHost(Host* host);

// A plain box under the program's title.
Answer messageBox(std::string_view text, std::string_view title = "", Icon icon = Icon::none,
                  Buttons buttons = Buttons::ok);

}  // namespace torvane
