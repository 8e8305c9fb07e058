// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/ApplicationSupport.h"

#include "tests/support/Printing.h"
#include "tests/support/VariableTable.h"

#include <gtest/gtest.h>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(ApplicationSupport, IsTheDataHomeElseInTheHome) {
    EXPECT_EQ(applicationSupportFolder(variables({{"XDG_DATA_HOME", "/d"}, {"HOME", "/h"}})),
              u"/d"_s);
    EXPECT_EQ(applicationSupportFolder(variables({{"HOME", "/h"}})), u"/h/.local/share"_s);
    EXPECT_EQ(applicationSupportFolder(variables({{"XDG_DATA_HOME", ""}, {"HOME", "/h"}})),
              u"/h/.local/share"_s);
    EXPECT_EQ(applicationSupportFolder(variables({{"HOME", "/home/王"}})),
              u"/home/王/.local/share"_s);
}

TEST(ApplicationSupport, IgnoresARelativeDataHome) {
    EXPECT_EQ(applicationSupportFolder(variables({{"XDG_DATA_HOME", "data"}, {"HOME", "/h"}})),
              u"/h/.local/share"_s);
}

TEST(ApplicationSupport, AsksThePasswordDatabaseWithoutAHome) {
    const QString home = QString::fromLocal8Bit(getpwuid(getuid())->pw_dir);
    EXPECT_EQ(applicationSupportFolder(variables({})), home + u"/.local/share"_s);
    EXPECT_EQ(applicationSupportFolder(variables({{"HOME", "relative"}})),
              home + u"/.local/share"_s);
}

TEST(ConfigurationFolder, FollowsTheSameRules) {
    EXPECT_EQ(configurationFolder(variables({{"XDG_CONFIG_HOME", "/c"}, {"HOME", "/h"}})), u"/c"_s);
    EXPECT_EQ(configurationFolder(variables({{"XDG_CONFIG_HOME", "c"}, {"HOME", "/h"}})),
              u"/h/.config"_s);
}

TEST(StateFolder, FollowsTheSameRules) {
    EXPECT_EQ(stateFolder(variables({{"XDG_STATE_HOME", "/s"}, {"HOME", "/h"}})), u"/s"_s);
    EXPECT_EQ(stateFolder(variables({{"XDG_STATE_HOME", "s"}, {"HOME", "/h"}})),
              u"/h/.local/state"_s);
    EXPECT_EQ(stateFolder(variables({{"HOME", "/h"}})), u"/h/.local/state"_s);
}

} // namespace tovarin
