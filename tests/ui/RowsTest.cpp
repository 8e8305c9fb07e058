// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// What rows and icons look like; what they say is in SubscriptionTextsTest.

#include "tests/support/Printing.h"
#include "tests/ui/Stage.h"

#include <QFont>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QColor text(0xE8, 0xE8, 0xE8);
const QColor textSecondary(0x8A, 0x8A, 0x8A);
const QColor textTertiary(0x55, 0x55, 0x55);
const QColor accent(0xF6, 0xC9, 0x4A);

QString row(const QString &fields) {
    return u"SubscriptionRow { objectName: 'row'; width: 480; index: 1; name: 'Morning Run';"
           " subtitle: 'Sports · Monthly'; amountText: '-¥30'; monthlyText: '≈¥30/mo';"
           " avatarLetter: 'M'; %1 }"_s.arg(fields);
}

const QString active = u"isActive: true; tag: ''; logoID: ''"_s;
const QString paused = u"isActive: false; tag: 'Paused'; logoID: ''"_s;

/// The text item that shows these words.
QQuickItem &words(Stage &stage, const QString &shown) {
    QQuickItem *const item = stage.itemWith("text", shown);
    if (!item)
        qFatal("nothing shows %s", qPrintable(shown));
    return *item;
}

QColor colourOf(Stage &stage, const QString &shown) {
    return words(stage, shown).property("color").value<QColor>();
}

QFont fontOf(Stage &stage, const QString &shown) {
    return words(stage, shown).property("font").value<QFont>();
}

void expectFont(Stage &stage, const QString &shown, QFont::Weight weight, int size,
                const QString &family = u"Poppins"_s) {
    const QFont font = fontOf(stage, shown);
    EXPECT_EQ(font.weight(), weight) << shown.toStdString();
    EXPECT_EQ(font.pixelSize(), size) << shown.toStdString();
    EXPECT_EQ(font.family(), family) << shown.toStdString();
}

/// The colour of 8 % of a tint over the window's ground.
QColor faint(QColor tint) {
    const auto mixed = [](int top, int below) { return qRound(0.08 * top + 0.92 * below); };
    return QColor(mixed(tint.red(), 15), mixed(tint.green(), 15), mixed(tint.blue(), 17));
}

bool isNear(QColor one, QColor other) {
    return std::abs(one.red() - other.red()) <= 3 && std::abs(one.green() - other.green()) <= 3 &&
           std::abs(one.blue() - other.blue()) <= 3;
}

/// How much of the area differs from the window's ground.
double covered(const QImage &image, QRect area) {
    int differing = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            differing += image.pixelColor(x, y) != QColor(15, 15, 17);
    return static_cast<double>(differing) / (area.width() * area.height());
}

} // namespace

TEST(SubscriptionRow, ShowsAnActiveEntry) {
    Stage stage(row(active));
    EXPECT_EQ(stage.texts(), (QStringList{u"M"_s, u"Morning Run"_s, u"Sports · Monthly"_s,
                                          u"-¥30"_s, u"≈¥30/mo"_s}));
    EXPECT_EQ(colourOf(stage, u"Morning Run"_s), text);
    EXPECT_EQ(colourOf(stage, u"Sports · Monthly"_s), textSecondary);
    EXPECT_EQ(colourOf(stage, u"-¥30"_s), accent);
    EXPECT_EQ(colourOf(stage, u"≈¥30/mo"_s), textTertiary);
    expectFont(stage, u"Morning Run"_s, QFont::DemiBold, 15);
    expectFont(stage, u"-¥30"_s, QFont::DemiBold, 15, u"Poppins Tabular"_s);
    expectFont(stage, u"≈¥30/mo"_s, QFont::Normal, 11);
    const QQuickItem *const chevron = stage.itemWith("name", u"chevron.right"_s);
    ASSERT_TRUE(chevron);
    EXPECT_GT(chevron->mapToScene({}).x(), words(stage, u"-¥30"_s).mapToScene({}).x());
}

TEST(SubscriptionRow, ShowsAPausedEntry) {
    Stage stage(row(paused));
    EXPECT_EQ(colourOf(stage, u"Morning Run"_s), textSecondary);
    EXPECT_EQ(colourOf(stage, u"-¥30"_s), accent);
    EXPECT_EQ(colourOf(stage, u"Paused"_s), textTertiary);
    expectFont(stage, u"Paused"_s, QFont::DemiBold, 10);
    EXPECT_EQ(colourOf(stage, u"M"_s), textTertiary);
}

TEST(SubscriptionRow, PutsTheTagOnItsOwnColour) {
    Stage stage(row(u"isActive: true; tag: 'One-time'; logoID: ''"_s));
    EXPECT_EQ(colourOf(stage, u"One-time"_s), accent);
    QQuickItem &tag = *words(stage, u"One-time"_s).parentItem();
    EXPECT_NEAR(tag.width(), words(stage, u"One-time"_s).implicitWidth() + 12, 1);
    EXPECT_NEAR(tag.height(), words(stage, u"One-time"_s).implicitHeight() + 4, 1);
    const QPoint left = tag.mapToScene({3, tag.height() / 2}).toPoint();
    EXPECT_TRUE(isNear(stage.settle().pixelColor(left), faint(accent)))
        << stage.settle().pixelColor(left).name().toStdString();
}

TEST(SubscriptionRow, HasALineAboveItButForTheFirst) {
    Stage stage(row(active) + row(active).replace(u"index: 1"_s, u"y: 100; index: 0"_s));
    const QImage image = stage.settle();
    EXPECT_NE(image.pixelColor(240, 0), QColor(15, 15, 17));
    EXPECT_EQ(image.pixelColor(240, 100), QColor(15, 15, 17));
    EXPECT_EQ(image.pixelColor(10, 0), QColor(15, 15, 17));
}

TEST(SubscriptionRow, KeepsWhatIsLongWithinIt) {
    const QString amount(120, u'9');
    Stage stage(row(active)
                    .replace(u"Morning Run"_s, QString(500, u'n'))
                    .replace(u"'-¥30'"_s, u"'-%1'"_s.arg(amount))
                    .replace(u"'≈¥30/mo'"_s, u"'≈%1/mo'"_s.arg(amount)));
    for (const QString &shown : {QString(500, u'n'), u"-"_s + amount, u"≈"_s + amount + u"/mo"_s}) {
        const QQuickItem &item = words(stage, shown);
        const QRectF area = item.mapRectToScene(item.boundingRect());
        EXPECT_GE(area.left(), 0) << shown.toStdString();
        EXPECT_LT(area.right(), 480 - 28) << shown.toStdString();
        EXPECT_GT(area.width(), 40) << shown.toStdString();
    }
}

TEST(ThemeText, IsPlainAndOneLine) {
    Stage stage(
        u"ThemeText { objectName: 'words'; width: 60; text: '<b>Bold</b> and far too long' }"_s);
    QQuickItem &item = stage.item("words");
    expectFont(stage, u"<b>Bold</b> and far too long"_s, QFont::Normal,
               fontOf(stage, u"<b>Bold</b> and far too long"_s).pixelSize());
    EXPECT_EQ(item.property("color").value<QColor>(), text);
    EXPECT_EQ(item.property("lineCount"), 1);
    EXPECT_TRUE(item.property("truncated").toBool());
    EXPECT_EQ(Stage::accessible(item)->role(), QAccessible::StaticText);
    EXPECT_EQ(Stage::accessible(item)->text(QAccessible::Name), u"<b>Bold</b> and far too long"_s);
    // Taken for markup, it would have no tags to draw.
    Stage wide(u"ThemeText { objectName: 'marked'; text: '<b>x</b>' }"
               "ThemeText { objectName: 'bare'; y: 40; text: 'x' }"_s);
    EXPECT_GT(wide.item("marked").width(), 3 * wide.item("bare").width());
}

TEST(BrandAvatar, IsALetterOnASquare) {
    Stage stage(
        u"BrandAvatar { objectName: 'bright'; letter: 'A'; size: 40 }"
        "BrandAvatar { objectName: 'dimmed'; y: 50; letter: 'B'; size: 40; dimmed: true }"_s);
    EXPECT_EQ(stage.item("bright").size(), QSizeF(40, 40));
    EXPECT_EQ(colourOf(stage, u"A"_s), text);
    EXPECT_EQ(colourOf(stage, u"B"_s), textTertiary);
    expectFont(stage, u"A"_s, QFont::DemiBold, 16);
    const QImage image = stage.settle();
    EXPECT_NEAR(image.pixelColor(4, 20).red(), 15 + 0.08 * 240, 1.5);
    EXPECT_NEAR(image.pixelColor(4, 70).red(), 15 + 0.04 * 240, 1.5);
}

TEST(ServiceLogoView, DrawsTheLogo) {
    Stage stage(u"ServiceLogoView { x: 10; y: 10; logoID: 'netflix'; icon: 'play.rectangle';"
                " size: 80; cornerRadius: 20 }"_s);
    const QImage image = stage.settle();
    // The tile with its red letter, and round corners; no symbol beside it.
    EXPECT_EQ(image.pixelColor(20, 50), QColor(0x1C, 0x1C, 0x1E));
    EXPECT_EQ(image.pixelColor(50, 50), QColor(0xE5, 0x09, 0x14));
    EXPECT_EQ(image.pixelColor(11, 11), QColor(15, 15, 17));
    EXPECT_EQ(stage.itemWith("name", u"play.rectangle"_s), nullptr);
    // A thin line of 12 % white around it.
    EXPECT_NEAR(image.pixelColor(10, 50).red(), 28 + 0.12 * (255 - 28), 4);
}

TEST(ServiceLogoView, DrawsTheSymbolWhereThereIsNoLogo) {
    Stage stage(u"ServiceLogoView { logoID: ''; icon: 'play.rectangle.fill'; size: 100;"
                " cornerRadius: 20 }"
                "ServiceLogoView { x: 120; logoID: ''; icon: 'play.rectangle.fill'; size: 100;"
                " cornerRadius: 20; selected: true }"_s);
    const QQuickItem *const symbol = stage.itemWith("name", u"play.rectangle.fill"_s);
    ASSERT_TRUE(symbol);
    EXPECT_EQ(symbol->size(), QSizeF(46, 46));
    EXPECT_EQ(symbol->mapToScene({}), QPointF(27, 27));
    const QImage image = stage.settle();
    EXPECT_NEAR(image.pixelColor(10, 50).red(), 15 + 0.06 * 240, 1.5);
    EXPECT_TRUE(isNear(image.pixelColor(130, 50), faint(accent)))
        << image.pixelColor(130, 50).name().toStdString();
    EXPECT_EQ(image.pixelColor(32, 50), textSecondary);
    EXPECT_EQ(image.pixelColor(152, 50), accent);
}

TEST(SubscriptionIconView, IsTheLogoOrTheLetter) {
    Stage stage(u"SubscriptionIconView { objectName: 'logo'; logoID: 'netflix'; letter: 'N' }"
                "SubscriptionIconView { y: 50; logoID: ''; letter: 'Z' }"_s);
    EXPECT_EQ(stage.texts(), QStringList{u"Z"_s});
    EXPECT_EQ(stage.item("logo").size(), QSizeF(42, 42));
    EXPECT_EQ(stage.settle().pixelColor(21, 21), QColor(0xE5, 0x09, 0x14));
}

TEST(SubscriptionIconView, DrawsADimmedLogoAtHalfItsStrength) {
    Stage stage(u"SubscriptionIconView { logoID: 'netflix'; letter: 'N'; dimmed: true }"
                "SubscriptionIconView { y: 50; logoID: ''; letter: 'Z'; dimmed: true }"_s);
    const QColor red = stage.settle().pixelColor(21, 21);
    EXPECT_NEAR(red.red(), (0xE5 + 15) / 2, 1.5);
    EXPECT_NEAR(red.green(), (0x09 + 15) / 2, 1.5);
    EXPECT_EQ(colourOf(stage, u"Z"_s), textTertiary);
}

TEST(BrandMark, IsDrawnSharpInItsSize) {
    Stage stage(u"BrandMark { x: 10; y: 10; size: 64 }"
                "BrandMark { x: 100; y: 10; size: 64; cornerRadius: 32 }"_s);
    const QImage image = stage.settle();
    EXPECT_GT(covered(image, {10, 10, 64, 64}), 0.9);
    // A circle.
    EXPECT_NEAR(covered(image, {100, 10, 64, 64}), 3.1416 / 4, 0.03);
    const QImage mark = QImage(u":/resources/BrandMark.png"_s)
                            .scaled(64, 64, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    int different = 0;
    for (int y = 8; y < 56; ++y)
        for (int x = 8; x < 56; ++x)
            different += !isNear(image.pixelColor(10 + x, 10 + y), mark.pixelColor(x, y));
    EXPECT_LT(different, 48 * 48 / 50);
}

TEST(UpcomingRow, StandsOutToday) {
    Stage stage(u"UpcomingRow { width: 480; height: 44; name: 'Morning Run'; amountText: '¥30';"
                " dueText: 'Charged today'; isToday: true; logoID: ''; avatarLetter: 'M' }"
                "UpcomingRow { y: 50; width: 480; height: 44; name: 'Netflix'; amountText: '¥40';"
                " dueText: 'in 3 days'; isToday: false; logoID: 'netflix'; avatarLetter: 'N' }"_s);
    EXPECT_EQ(colourOf(stage, u"Charged today"_s), accent);
    EXPECT_EQ(colourOf(stage, u"in 3 days"_s), textSecondary);
    EXPECT_EQ(stage.texts(), (QStringList{u"M"_s, u"Morning Run"_s, u"Charged today"_s, u"¥30"_s,
                                          u"Netflix"_s, u"in 3 days"_s, u"¥40"_s}));
}

} // namespace tovarin
