// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// Every sample against its golden file. A sample needs no code here, but its golden file: see
// tests/data/bills/README.md.

#include "tests/scan/bills/SampleBills.h"

#include "tests/scan/bills/BillReader.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

BillReader &reader() {
    static BillReader reader;
    return reader;
}

std::string testName(const testing::TestParamInfo<QString> &sample) {
    std::string name = sample.param.toStdString();
    std::ranges::replace_if(
        name, [](unsigned char c) { return c > 127 || !std::isalnum(c); }, '_');
    return name;
}

class SampleBillsTest : public testing::TestWithParam<QString> {};

} // namespace

TEST_P(SampleBillsTest, AreReadAsTheirGoldenFilesSay) {
    const std::optional<QJsonObject> found = reader().read(GetParam());
    const std::optional<QJsonObject> wanted = golden(GetParam());
    ASSERT_EQ(found.has_value(), wanted.has_value()) << qPrintable(GetParam());
    if (found) {
        expectDraft(*found, *wanted);
        expectText(*found, *wanted);
    }
}

INSTANTIATE_TEST_SUITE_P(Each, SampleBillsTest, testing::ValuesIn(sampleBills()), testName);

TEST(GoldenBillsTest, BelongToTheSamples) {
    EXPECT_GT(sampleBills().size(), 100);
    EXPECT_EQ(samplesWithGolden(), sampleBills());
}

} // namespace tovarin
