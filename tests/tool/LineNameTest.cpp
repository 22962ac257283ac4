// SPDX-License-Identifier: MIT
// Lines and addresses as a user names them.
#include "tool/LineName.h"

#include <gtest/gtest.h>

namespace torvane {

namespace {

using tool::LineName;
using tool::parseAddresses;
using tool::parseLineName;

TEST(LineName, PortsDevicesAndBridges) {
  for (const char* text : {"COM1", "com1", "COM 1", "Com 1"}) {
    EXPECT_EQ(parseLineName(text), LineName{.commPort = 1}) << text;
  }
  EXPECT_EQ(parseLineName("/dev/ttyUSB0"), LineName{.device = "/dev/ttyUSB0"});
  EXPECT_EQ(parseLineName("./bus"), LineName{.device = "./bus"});
  EXPECT_EQ(parseLineName("/dev/serial/by-path/a:1.0"), LineName{.device = "/dev/serial/by-path/a:1.0"});
  EXPECT_EQ(parseLineName("192.168.1.200:2000"), (LineName{.host = "192.168.1.200", .port = 2000}));
  EXPECT_EQ(parseLineName("Cabinet7:1"), (LineName{.host = "cabinet7", .port = 1}));
  EXPECT_EQ(parseLineName("[fe80::1]:2000"), (LineName{.host = "[fe80::1]", .port = 2000}));
}

TEST(LineName, AnythingElseIsNone) {
  for (const char* text : {"", "COM", "COM0", "COM1x", "COM257", "COM-1", "host", "host:", ":2000", "host:0",
                           "host:65536", "host:x", "a b:1", "fe80::1:2000", "[]:1", "tty", "host:1 "}) {
    EXPECT_FALSE(parseLineName(text)) << text;
  }
}

TEST(LineName, TextIsTheSameForOneLine) {
  EXPECT_EQ(lineText(*parseLineName("com1")), lineText(*parseLineName("COM 1")));
  EXPECT_EQ(lineText(*parseLineName("HOST:20")), "host:20");
  EXPECT_EQ(lineText(*parseLineName("/dev/ttyS0")), "/dev/ttyS0");
  EXPECT_EQ(parseLineName(lineText(*parseLineName("COM7"))), parseLineName("COM7"));
}

TEST(Addresses, RangesAndLists) {
  EXPECT_EQ(parseAddresses("0-199")->size(), 200U);
  EXPECT_EQ(parseAddresses("17"), std::vector<int>{17});
  EXPECT_EQ(parseAddresses("10-12,1,11"), (std::vector<int>{1, 10, 11, 12}));
  for (const char* text : {"", ",", "1,", "200", "5-1", "1-", "-1", "1-2-3", "0-200", "x", " 1"}) {
    EXPECT_FALSE(parseAddresses(text)) << text;
  }
}

}  // namespace

}  // namespace torvane
