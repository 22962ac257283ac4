// SPDX-License-Identifier: MIT
// A print server of a test's own.
#include "qt/PrintServer.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTcpSocket>
#include <QTest>

namespace torvane {

namespace {

constexpr int patience = 10000;  // milliseconds
constexpr const char* program = "/usr/sbin/cupsd";

constexpr const char* configuration = R"(Listen %1
Browsing No
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
)";

constexpr const char* places = R"(ServerRoot %1
ServerBin %1/lib
DataDir %1/share
CacheDir %1/cache
RequestRoot %1/spool
StateDir %1/state
TempDir %1/spool/tmp
ErrorLog %1/log
AccessLog %1/access
PageLog %1/pages
Sandboxing relaxed
)";

constexpr const char* printers = R"(<DefaultPrinter %1>
DeviceURI keep:%2
State Idle
Accepting Yes
Shared No
</DefaultPrinter>
)";

// The queue's device: a file that is there as soon as it is whole.
constexpr const char* device = R"(#!/bin/sh
[ $# = 0 ] && exit 0
paper=${DEVICE_URI#keep:}
cat ${6:+"$6"} >"$paper.part" && mv "$paper.part" "$paper"
)";

}  // namespace

PrintServer::PrintServer() {
  for (const char* name : {"lib/backend", "share/mime", "cache", "spool/tmp", "state"})
    QDir(folder_.path()).mkpath(name);
  writeConfiguration(qgetenv("CUPS_SERVER"));
  writeQueue();
  process_.setProcessChannelMode(QProcess::MergedChannels);
  process_.start(program,
                 {"-f", "-c", folder_.filePath("cupsd.conf"), "-s", folder_.filePath("cups-files.conf")});
  EXPECT_TRUE(process_.waitForStarted()) << program << ": " << process_.errorString().toStdString();
}

PrintServer::~PrintServer() {
  process_.terminate();
  process_.waitForFinished(patience);
}

bool PrintServer::runs() {
  const QByteArrayList place = qgetenv("CUPS_SERVER").split(':');
  const auto answers = [&] {
    QTcpSocket socket;
    socket.connectToHost(place.value(0), place.value(1).toUShort());
    return socket.waitForConnected();
  };
  return QTest::qWaitFor([&] { return process_.state() != QProcess::Running || answers(); }, patience) &&
         process_.state() == QProcess::Running;
}

QByteArray PrintServer::log() const {
  QFile file(folder_.filePath("log"));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("the print server has left no words");
}

int PrintServer::documents() const {
  return static_cast<int>(QDir(folder_.filePath("spool")).entryList({"d*"}, QDir::Files).size());
}

void PrintServer::write(const QString& name, const QByteArray& content) const {
  QFile file(folder_.filePath(name));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
  file.write(content);
}

void PrintServer::writeConfiguration(const QByteArray& place) const {
  write("cupsd.conf", QString(configuration).arg(QString(place)).toUtf8());
  write("cups-files.conf", QString(places).arg(folder_.path()).toUtf8());
  write("printers.conf", QString(printers).arg(queue, paper()).toUtf8());
}

// Run by its owner alone, so that a server of the superuser runs it as such.
void PrintServer::writeQueue() const {
  write("lib/backend/keep", device);
  QFile::setPermissions(folder_.filePath("lib/backend/keep"),
                        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QFile::link("/usr/lib/cups/daemon", folder_.filePath("lib/daemon"));
  QFile::link("/usr/share/cups/mime/mime.types", folder_.filePath("share/mime/mime.types"));
}

}  // namespace torvane
