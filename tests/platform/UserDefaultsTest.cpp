// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserDefaults.h"

#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class UserDefaultsFileTest : public testing::Test {
protected:
    QString path() const { return m_folder.filePath(u"Tovarin/Tovarin.conf"_s); }

    void write(const QByteArray &bytes) const {
        QDir(m_folder.path()).mkpath(u"Tovarin"_s);
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QByteArray bytes() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(UserDefaultsFileTest, HasNothingAtFirstAndWritesNothingByReading) {
    const UserDefaultsFile defaults(path());
    EXPECT_EQ(defaults.text(u"appLanguage"_s), std::nullopt);
    EXPECT_EQ(defaults.integer(u"remindDaysBefore"_s), std::nullopt);
    EXPECT_EQ(defaults.boolean(u"didCompleteQuickPick"_s), std::nullopt);
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(UserDefaultsFileTest, WritesAtOnceUnderTheExactKeyAtTheTopLevel) {
    UserDefaultsFile defaults(path());
    defaults.setText(u"appLanguage"_s, u"zh"_s);
    EXPECT_EQ(bytes(), "[General]\nappLanguage=zh\n");
    defaults.setInteger(u"remindDaysBefore"_s, -7);
    EXPECT_EQ(bytes(), "[General]\nappLanguage=zh\nremindDaysBefore=-7\n");
    defaults.setBoolean(u"didCompleteQuickPick"_s, true);
    EXPECT_EQ(bytes(),
              "[General]\nappLanguage=zh\ndidCompleteQuickPick=true\nremindDaysBefore=-7\n");
}

TEST_F(UserDefaultsFileTest, IsReadBackByTheNextProgram) {
    {
        UserDefaultsFile defaults(path());
        defaults.setText(u"text"_s, u"引号 \" = ; # , \\ 和\n换行"_s);
        defaults.setInteger(u"integer"_s, 2147483647);
        defaults.setBoolean(u"boolean"_s, false);
    }
    const UserDefaultsFile defaults(path());
    EXPECT_EQ(defaults.text(u"text"_s), u"引号 \" = ; # , \\ 和\n换行"_s);
    EXPECT_EQ(defaults.integer(u"integer"_s), 2147483647);
    EXPECT_EQ(defaults.boolean(u"boolean"_s), false);
}

TEST_F(UserDefaultsFileTest, KeepsWhatItDoesNotKnow) {
    write("[General]\nother=1\n\n[Window]\nframe=abc\n");
    UserDefaultsFile defaults(path());
    defaults.setText(u"appLanguage"_s, u"en"_s);
    EXPECT_EQ(bytes(), "[General]\nappLanguage=en\nother=1\n\n[Window]\nframe=abc\n");
}

TEST_F(UserDefaultsFileTest, TakesAListForNoText) {
    write("[General]\nappLanguage=zh, en\n");
    EXPECT_EQ(UserDefaultsFile(path()).text(u"appLanguage"_s), std::nullopt);
}

TEST_F(UserDefaultsFileTest, SurvivesADamagedFile) {
    write("\x00\xff[[[=\n=\n]]");
    UserDefaultsFile defaults(path());
    EXPECT_EQ(defaults.text(u"appLanguage"_s), std::nullopt);
}

TEST_F(UserDefaultsFileTest, KeepsAValueThatCannotBeWrittenForThisRun) {
    UserDefaultsFile defaults(u"/dev/null/Tovarin.conf"_s);
    defaults.setText(u"appLanguage"_s, u"en"_s);
    EXPECT_EQ(defaults.text(u"appLanguage"_s), u"en"_s);
    EXPECT_FALSE(QFile::exists(u"/dev/null/Tovarin.conf"_s));
}

TEST(UserDefaults, CountsAsAnIntegerOnlyWhatIsOneAltogether) {
    const QList<std::pair<QString, std::optional<int>>> cases = {
        {u"0"_s, 0},
        {u"3"_s, 3},
        {u"-1"_s, -1},
        {u"007"_s, 7},
        {u"2147483647"_s, 2147483647},
        {u"-2147483648"_s, -2147483647 - 1},
        {u"2147483648"_s, std::nullopt},
        {u"3.0"_s, std::nullopt},
        {u"3 "_s, std::nullopt},
        {u" 3"_s, std::nullopt},
        {u"+3"_s, std::nullopt},
        {u"3d"_s, std::nullopt},
        {u"1e1"_s, std::nullopt},
        {u"0x3"_s, std::nullopt},
        {u"３"_s, std::nullopt},
        {u"true"_s, std::nullopt},
        {u"-"_s, std::nullopt},
        {QString(), std::nullopt},
    };
    for (const auto &[stored, expected] : cases) {
        const MemoryDefaults defaults({{u"key"_s, stored}});
        EXPECT_EQ(defaults.integer(u"key"_s), expected) << stored.toStdString();
    }
}

TEST(UserDefaults, CountsAsABooleanOnlyTrueAndFalse) {
    const QList<std::pair<QString, std::optional<bool>>> cases = {
        {u"true"_s, true},      {u"false"_s, false},      {u"TRUE"_s, std::nullopt},
        {u"1"_s, std::nullopt}, {u"yes"_s, std::nullopt}, {QString(), std::nullopt},
    };
    for (const auto &[stored, expected] : cases) {
        const MemoryDefaults defaults({{u"key"_s, stored}});
        EXPECT_EQ(defaults.boolean(u"key"_s), expected) << stored.toStdString();
    }
}

TEST(UserDefaults, StandardOnesStandInTheConfigurationFolder) {
    UserDefaults::standard().setText(u"appLanguage"_s, u"system"_s);
    QFile file(qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Tovarin/Tovarin.conf"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "[General]\nappLanguage=system\n");
}

} // namespace tovarin
