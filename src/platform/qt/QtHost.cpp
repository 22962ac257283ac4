// SPDX-License-Identifier: MIT
// The machine on Qt: clock, events, boxes, and what is passed on to its neighbours.
#include "platform/qt/QtHost.h"

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPixmap>
#include <QTime>
#include <cmath>
#include <cstdlib>

#include "platform/Program.h"
#include "platform/qt/Binder.h"
#include "platform/qt/Bounds.h"
#include "platform/qt/HelpWindow.h"
#include "platform/qt/QtFiles.h"
#include "platform/qt/QtPrinterDevice.h"
#include "platform/qt/io/QtSocket.h"
#include "platform/qt/io/QtText.h"
#include "platform/qt/io/SerialPorts.h"

namespace torvane {

namespace {

constexpr int longestLineOfBox = 600;  // characters

QMessageBox::Icon iconOf(Icon icon) {
  switch (icon) {
    case Icon::information:
      return QMessageBox::Information;
    case Icon::critical:
      return QMessageBox::Critical;
    case Icon::question:
      return QMessageBox::Question;
    case Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

void setButtons(QMessageBox& box, Buttons buttons) {
  if (buttons == Buttons::ok) {
    box.setStandardButtons(QMessageBox::Ok);
    return;
  }
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  if (buttons == Buttons::noYes) box.setDefaultButton(QMessageBox::No);
}

Answer answerOf(int button) {
  if (button == QMessageBox::Ok) return Answer::ok;
  return button == QMessageBox::Yes ? Answer::yes : Answer::no;
}

// What a handler has let go of is deleted here, never beneath a handler that is still running.
void deleteWhatIsDue() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

}  // namespace

QtHost::QtHost() : startOfRun_(QTime::currentTime().msecsSinceStartOfDay() / 1000.0), ports_(settings_) {
  sinceStart_.start();
  alarm_.setSingleShot(true);
  alarm_.setTimerType(Qt::PreciseTimer);
  // The program ends when its own code says so; between two windows there may be none.
  QApplication::setQuitOnLastWindowClosed(false);
}

QtHost::~QtHost() {
  delete help_.data();
  deleteWhatIsDue();
}

double QtHost::now() { return startOfRun_ + static_cast<double>(sinceStart_.nsecsElapsed()) / 1e9; }

void QtHost::yield() {
  windows_.paintRate.hurry([] { QCoreApplication::processEvents(); });
  deleteWhatIsDue();
}

void QtHost::idle(double seconds) {
  const auto wait = static_cast<int>(std::ceil(seconds * 1000));
  if (wait <= 0) return yield();
  alarm_.start(wait);
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  alarm_.stop();
  deleteWhatIsDue();
}

void QtHost::show(Form& form, bool modal) { windows_.show(form, modal); }

void QtHost::hide(Form& form) { windows_.hide(form); }

void QtHost::release(Form& form) { windows_.release(form); }

void QtHost::centre(Form& form) { windows_.of(form).centre(); }

void QtHost::repaint(Form& form) { windows_.repaint(form); }

Answer QtHost::messageBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) {
  const QPointer<QMessageBox> box(new QMessageBox(front()));
  box->setTextFormat(Qt::PlainText);
  box->setText(breakable(shown(text), longestLineOfBox));
  box->setWindowTitle(title.empty() ? QString(program::title) : shown(title));
  box->setIcon(iconOf(icon));
  setButtons(*box, buttons);
  const Answer answer = answerOf(box->exec());
  delete box.data();
  return answer;
}

void QtHost::beep() { QApplication::beep(); }

std::string QtHost::setting(const std::string& path) { return settings_.value(path); }

void QtHost::saveSetting(const std::string& path, const std::string& value) { settings_.save(path, value); }

void QtHost::deleteSetting(const std::string& path) { settings_.remove(path); }

std::unique_ptr<SerialPort> QtHost::makeSerialPort() {
  return systemSerialPort([this](int commPort) { return ports_.device(commPort); });
}

std::string QtHost::serialPortHint(int commPort) {
  settings_.sync();
  return ports_.hint(commPort);
}

std::unique_ptr<Socket> QtHost::makeSocket() { return std::make_unique<QtSocket>(); }

std::unique_ptr<Printer> QtHost::choosePrinter(const std::string& document) {
  return torvane::choosePrinter(files_, document);
}

std::unique_ptr<Printer> QtHost::makePdf(const std::string& path) { return pdfPrinter(shown(path)); }

// None of the program's windows is active while the user is at another program.
QWidget* QtHost::front() const {
  QWidget* const active = QApplication::activeWindow();
  return active != nullptr ? active : windows_.front();
}

std::string QtHost::today() { return typed(QLocale().toString(QDate::currentDate(), QLocale::ShortFormat)); }

std::string QtHost::utcNow() { return typed(QDateTime::currentDateTimeUtc().toString(Qt::ISODate)); }

void QtHost::showHelp(const std::string& path) {
  const auto guide = helpGuide(shown(path));
  if (!guide) return;
  if (!help_) help_ = new HelpWindow(*guide);
  help_->show();
  help_->raise();
  help_->activateWindow();
}

std::string QtHost::chooseFileToOpen(const std::string& filter) { return files_.chooseToOpen(filter); }

std::string QtHost::chooseFileToSave(const std::string& filter) { return files_.chooseToSave(filter); }

std::string QtHost::proposeFileToSave(const std::string& filter, const std::string& name) {
  return files_.chooseToSave(filter, name);
}

std::string QtHost::readFile(const std::string& path, std::size_t most) { return readWhole(path, most); }

void QtHost::exchangeFile(const std::string& path, std::string_view bytes) { exchangeWhole(path, bytes); }

void QtHost::replaceFile(const std::string& path, std::string_view bytes) { replaceWhole(path, bytes); }

void QtHost::copyText(std::string_view text) { QGuiApplication::clipboard()->setText(shown(text)); }

std::string QtHost::programFolder() { return typed(QCoreApplication::applicationDirPath()); }

bool QtHost::fileExists(const std::string& path) { return QFileInfo(QString::fromStdString(path)).isFile(); }

void QtHost::renameFile(const std::string& from, const std::string& to) { renameWhole(from, to); }

std::string QtHost::dataFolder() { return torvane::dataFolder(); }

void QtHost::fail(const std::string& description) {
  if (failing_) return;
  failing_ = true;
  const std::string kept = beforeTheEnd ? beforeTheEnd() : "";
  messageBox(kept.empty() ? description : description + "\r\r" + kept, "", Icon::critical, Buttons::ok);
  closeAllSerialPorts();
  settings_.sync();
  std::exit(EXIT_FAILURE);
}

QWidget& QtHost::window(Form& form) { return windows_.of(form); }

bool screenshot(Form& form, const QString& file) {
  auto* qt = dynamic_cast<QtHost*>(theHost<WindowSystem>);
  if (qt == nullptr) return false;
  showDueBindings(qt->window(form));
  return qt->window(form).grab().save(file);
}

}  // namespace torvane
