// SPDX-License-Identifier: MIT
// A print server of a test's own on loopback, with one queue whose paper is a file.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace torvane {

class PrintServer {
 public:
  static constexpr const char* queue = "report";

  // Starts the server at the place that CUPS_SERVER names, as the user who runs the test.
  PrintServer();
  PrintServer(const PrintServer&) = delete;
  PrintServer& operator=(const PrintServer&) = delete;
  ~PrintServer();

  // Whether it answers.
  bool runs();
  // What the server said, for the words of a failure.
  QByteArray log() const;
  // Documents it was sent so far.
  int documents() const;
  // Where the queue leaves what was printed.
  QString paper() const { return folder_.filePath("printed.pdf"); }

 private:
  void write(const QString& name, const QByteArray& content) const;
  void writeConfiguration(const QByteArray& place) const;
  void writeQueue() const;

  QTemporaryDir folder_;
  QProcess process_;
};

}  // namespace torvane
