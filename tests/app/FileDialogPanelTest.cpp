// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/FileDialogPanel.h"

#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPixmapCache>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using enum OpenPanel::ContentType;

class FileDialogPanelTest : public testing::Test {
protected:
    void SetUp() override {
        for (const QString &name : {u"a.png"_s, u"B.PDF"_s, u"c.txt"_s}) {
            QFile file(path(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// Shows the panel to somebody who does this with the dialog.
    static QList<QUrl> run(const OpenPanel::Request &request,
                           const std::function<void(QFileDialog &)> &act) {
        bool acted = false;
        QTimer::singleShot(0, [&] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            acted = true;
            act(*dialog);
            // What was refused leaves the dialog open.
            dialog->close();
        });
        FileDialogPanel panel;
        const QList<QUrl> urls = panel.run(request);
        EXPECT_TRUE(acted);
        return urls;
    }

    /// Types file names and presses the button that opens them.
    void open(QFileDialog &dialog, const QString &names) const {
        dialog.setDirectory(m_folder.path());
        dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(names);
        dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open)->click();
    }

private:
    QTemporaryDir m_folder;
};

const OpenPanel::Request one = {u"选择账单截图或 PDF"_s, false, {png, pdf}};
const OpenPanel::Request several = {u"Choose bill screenshots or PDFs"_s, true, {png, pdf}};

} // namespace

TEST_F(FileDialogPanelTest, LeavesNothingInTheCacheOfPixmaps) {
    const auto isCached = [] {
        QPixmap found;
        return QPixmapCache::find(u"drawn for the dialog"_s, &found);
    };
    run(one, [&](QFileDialog &dialog) {
        ASSERT_TRUE(QPixmapCache::insert(u"drawn for the dialog"_s, dialog.grab()));
        EXPECT_TRUE(isCached());
    });
    EXPECT_FALSE(isCached());
}

TEST_F(FileDialogPanelTest, ShowsTheMessageAndTheAllowedFiles) {
    run(one, [](const QFileDialog &dialog) {
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.windowTitle(), one.message);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_TRUE(dialog.testOption(QFileDialog::HideNameFilterDetails));
        EXPECT_EQ(dialog.nameFilters(),
                  QStringList(u"选择账单截图或 PDF (*.[pP][nN][gG] *.[pP][dD][fF])"_s));
    });
    run(several, [](const QFileDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), several.message);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
    });
}

TEST_F(FileDialogPanelTest, SpeaksTheLanguageOfTheMoment) {
    const auto openButton = [](const OpenPanel::Request &request) {
        QString text;
        run(request, [&text](const QFileDialog &dialog) {
            text = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open)->text();
        });
        return text;
    };
    {
        const LanguageScope scope(LocalizationManager::Lang::zh);
        EXPECT_EQ(openButton(one), u"打开(&O)"_s);
    }
    const LanguageScope scope(LocalizationManager::Lang::en);
    EXPECT_EQ(openButton(several), u"&Open"_s);
}

TEST_F(FileDialogPanelTest, GivesTheChosenFiles) {
    EXPECT_EQ(run(one, [this](QFileDialog &dialog) { open(dialog, u"B.PDF"_s); }),
              QList<QUrl>({QUrl::fromLocalFile(path(u"B.PDF"_s))}));
    EXPECT_EQ(run(several, [this](QFileDialog &dialog) { open(dialog, u"\"a.png\" \"B.PDF\""_s); }),
              QList<QUrl>(
                  {QUrl::fromLocalFile(path(u"a.png"_s)), QUrl::fromLocalFile(path(u"B.PDF"_s))}));
}

TEST_F(FileDialogPanelTest, GivesNothingWhenItIsCancelled) {
    EXPECT_EQ(run(several,
                  [this](QFileDialog &dialog) {
                      dialog.selectFile(path(u"a.png"_s));
                      dialog.reject();
                  }),
              QList<QUrl>());
}

TEST_F(FileDialogPanelTest, GivesNoFolder) {
    EXPECT_EQ(run(one, [this](QFileDialog &dialog) { open(dialog, path(u"."_s)); }), QList<QUrl>());
}

} // namespace tovarin
