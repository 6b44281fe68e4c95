// SPDX-License-Identifier: MIT
#include "helper/session_bus.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace chimewell::test {
namespace {

using Sockets = std::vector<std::string>;

Sockets socketsOf(std::vector<const char*> block)
{
    block.push_back(nullptr);
    return sessionBusSockets(Environment(block.data()), 1000);
}

TEST(BusAddress, NamesTheSockets)
{
    const std::vector<std::pair<std::string, Sockets>> cases = {
        {"unix:path=/run/user/7/bus", {"/run/user/7/bus"}},
        {"unix:guid=00ff,path=/a", {"/a"}},
        {"unix:path=/a%20b%2c%3B,guid=1", {"/a b,;"}},
        {"unix:abstract=/tmp/x", {std::string("\0/tmp/x", 7)}},
        {"unix:path=/a;tcp:host=h,port=1;unix:abstract=b;;", {"/a", std::string("\0b", 2)}},
        {"unix:runtime=yes", {"/run/r/bus"}},
        {"autolaunch:", {}},
        {"unixexec:path=/bin/sh", {}},
        {"unix:tmpdir=/tmp", {}},
        {"unix:path=/a%2", {}},
        {"unix:path=/a%zz", {}},
        {"path=/a", {}},
        {"nonsense", {}},
    };
    for (const auto& [address, expected] : cases) {
        const std::string variable = "DBUS_SESSION_BUS_ADDRESS=" + address;
        EXPECT_EQ(socketsOf({variable.c_str(), "XDG_RUNTIME_DIR=/run/r"}), expected) << address;
    }
}

TEST(BusAddress, HasADefault)
{
    EXPECT_EQ(socketsOf({"XDG_RUNTIME_DIR=/run/r", "DBUS_SESSION_BUS_ADDRESS="}), Sockets{"/run/r/bus"});
    EXPECT_EQ(socketsOf({}), Sockets{"/run/user/1000/bus"});
}

}
}
