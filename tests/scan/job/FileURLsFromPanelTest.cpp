// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/FileURLsFromPanel.h"

#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"
#include "tests/support/ScriptedPanel.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using Lang = LocalizationManager::Lang;
using enum OpenPanel::ContentType;

const QList<OpenPanel::ContentType> bills = {png, jpeg, tiff, image, pdf};

} // namespace

TEST(FileURLsFromPanelTest, AsksForImagesAndPdfsInTheLanguageOfTheMoment) {
    ScriptedPanel panel({});
    {
        const LanguageScope scope(Lang::zh);
        ReceiptScanner::fileURLsFromPanel(panel, true);
    }
    const LanguageScope scope(Lang::en);
    ReceiptScanner::fileURLsFromPanel(panel, false);
    EXPECT_EQ(panel.requests,
              QList<OpenPanel::Request>({{u"选择账单截图或 PDF"_s, true, bills},
                                         {u"Choose bill screenshots or PDFs"_s, false, bills}}));
}

TEST(FileURLsFromPanelTest, GivesTheFilesInThePanelsOrder) {
    const QList<QUrl> choice = {QUrl::fromLocalFile(u"/b.png"_s), QUrl::fromLocalFile(u"/a.PDF"_s),
                                QUrl::fromLocalFile(u"/b.png"_s)};
    ScriptedPanel panel(choice);
    EXPECT_EQ(ReceiptScanner::fileURLsFromPanel(panel, true), choice);
}

TEST(FileURLsFromPanelTest, GivesNothingWhenTheUserCancels) {
    ScriptedPanel panel({});
    EXPECT_EQ(ReceiptScanner::fileURLsFromPanel(panel, true), QList<QUrl>());
    EXPECT_EQ(panel.requests.size(), 1);
}

} // namespace tovarin
