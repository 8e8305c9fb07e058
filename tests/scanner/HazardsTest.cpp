// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// One tovarin-scanner reads one odd file after another, and lives.

#include "scan/job/ScanMessages.h"
#include "tests/scan/bills/SampleBills.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr int patienceInMilliseconds = 120000;

QStringList oddSamples() {
    QStringList samples = sampleBills();
    samples.removeIf([](const QString &sample) {
        return !sample.startsWith(u"hazards/"_s) && !sample.startsWith(u"pdf/"_s);
    });
    return samples;
}

class HazardsTest : public testing::Test {
protected:
    void SetUp() override {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"TZ"_s, u"Asia/Shanghai"_s);
        m_scanner.setProcessEnvironment(environment);
        m_scanner.setStandardErrorFile(QProcess::nullDevice());
        m_scanner.start(QString::fromUtf8(SCANNER), {u"en"_s});
    }

    /// The next answer, or its absence.
    std::optional<QByteArray> answer(const QString &sample) {
        m_scanner.write(ScanMessages::encodeRequest(samplePath(sample)));
        while (!m_scanner.canReadLine()) {
            if (!m_scanner.waitForReadyRead(patienceInMilliseconds))
                return std::nullopt;
        }
        QByteArray line = m_scanner.readLine();
        line.chop(1);
        return line;
    }

    void TearDown() override {
        m_scanner.closeWriteChannel();
        ASSERT_TRUE(m_scanner.waitForFinished(patienceInMilliseconds));
        EXPECT_EQ(m_scanner.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_scanner.exitCode(), EXIT_SUCCESS);
        EXPECT_EQ(m_scanner.readAllStandardOutput(), "");
    }

private:
    QProcess m_scanner;
};

} // namespace

TEST_F(HazardsTest, AreSurvivedWhereNothingCanBeRead) {
    int unreadable = 0;
    for (const QString &sample : oddSamples()) {
        if (golden(sample))
            continue;
        ++unreadable;
        ASSERT_EQ(answer(sample), "null"_ba) << qPrintable(sample);
    }
    EXPECT_GT(unreadable, 10);
}

TEST_F(HazardsTest, AreReadWhereTheyCanBe) {
    const UserCalendar calendar = calendarIn("Asia/Shanghai");
    int readable = 0;
    for (const QString &sample : oddSamples()) {
        SCOPED_TRACE(qPrintable(sample));
        const std::optional<QJsonObject> wanted = golden(sample);
        if (!wanted)
            continue;
        ++readable;
        // Answers count in whole seconds.
        const Instant begin = std::chrono::floor<std::chrono::seconds>(SystemClock().now());
        const std::optional<QByteArray> line = answer(sample);
        ASSERT_TRUE(line);
        const auto decoded = ScanMessages::decodeAnswer(*line);
        const auto *draft = std::get_if<std::optional<Subscription>>(&decoded);
        ASSERT_TRUE(draft && *draft) << line->constData();
        expectDraft({{u"draft"_s, goldenDraft(**draft, calendar, begin, SystemClock().now())}},
                    *wanted);
    }
    EXPECT_GT(readable, 30);
}

} // namespace tovarin
