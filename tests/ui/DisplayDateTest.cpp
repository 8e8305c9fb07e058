// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/DisplayDate.h"

#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(DisplayDate, HasOneFixedForm) {
    EXPECT_EQ(displayDate(civilDay("2025-03-12")), u"2025/03/12"_s);
    EXPECT_EQ(displayDate(civilDay("2024-02-29")), u"2024/02/29"_s);
    EXPECT_EQ(displayDate(civilDay("1999-12-31")), u"1999/12/31"_s);
    EXPECT_EQ(displayDate(civilDay("0987-01-02")), u"0987/01/02"_s);
}

} // namespace tovarin
