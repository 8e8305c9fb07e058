// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/SheetStage.h"

#include <QMetaEnum>
#include <QQmlComponent>
#include <QQmlContext>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString emptySheet = u"Sheet { objectName: 'sheet'; label: 'Sheet';"
                           " FocusScope { objectName: 'content'; anchors.fill: parent;"
                           " focus: true } }"_s;

/// "cell3", "row0", but not the "rows" that they stand in.
bool isCellOrRow(const QString &name) {
    return (name.startsWith(u"cell"_s) || name.startsWith(u"row"_s)) && name.back().isDigit();
}

QString roleOf(const QAccessibleInterface &seen) {
    return QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(seen.role()));
}

void tell(QAccessibleInterface &seen, QStringList &told) {
    if (seen.state().invisible)
        return;
    QStringList words{roleOf(seen), seen.text(QAccessible::Name)};
    if (seen.role() == QAccessible::CheckBox)
        words.append(seen.state().checked ? u"(ticked)"_s : u"(unticked)"_s);
    if (seen.role() == QAccessible::EditableText)
        words.append(u"= "_s + seen.text(QAccessible::Value));
    if (seen.state().disabled)
        words.append(u"(disabled)"_s);
    if (QAccessibleActionInterface *const actions = seen.actionInterface()) {
        if (actions->actionNames().contains(QAccessibleActionInterface::pressAction()))
            words.append(u"[press]"_s);
        if (actions->actionNames().contains(QAccessibleActionInterface::toggleAction()))
            words.append(u"[toggle]"_s);
    }
    // A pane says nothing itself.
    if (seen.role() != QAccessible::Pane)
        told.append(words.join(u' '));
    for (int i = 0; i < seen.childCount(); ++i)
        tell(*seen.child(i), told);
}

} // namespace

SheetStage::SheetStage(const QString &screen, const QVariantMap &properties, QSize size)
    : Stage(emptySheet, size) {
    QQmlComponent component(&engine(), QUrl(u"qrc:/Tovarin/%1.qml"_s.arg(screen)));
    QQuickItem &content = item("content");
    m_screen = qobject_cast<QQuickItem *>(
        component.createWithInitialProperties(properties, qmlContext(&content)));
    if (!m_screen)
        qFatal("%s", qPrintable(component.errorString()));
    m_screen->setParent(&content);
    m_screen->setParentItem(&content);
    QObject &sheet = object("sheet");
    sheet.setProperty("label", m_screen->property("label"));
    QMetaObject::invokeMethod(&sheet, "open");
    if (!QTest::qWaitFor([&sheet] { return sheet.property("opened").toBool(); }))
        qFatal("the sheet does not open");
    takeItsSize();
}

/// How high it is may depend on how wide it is.
void SheetStage::takeItsSize() {
    for (int i = 0; i < 2; ++i) {
        object("sheet").setProperty("preferredWidth", m_screen->implicitWidth());
        object("sheet").setProperty("preferredHeight", m_screen->implicitHeight());
        settle();
        m_screen->setSize(item("content").size());
        settle();
    }
}

bool SheetStage::isOpen() {
    return object("sheet").property("visible").toBool();
}

void SheetStage::resize(QSize size) {
    window().resize(size);
    settle();
    takeItsSize();
}

QQuickItem &SheetStage::inSight(const QString &name) {
    QQuickItem *const found = itemWith("objectName", name);
    if (!found)
        qFatal("there is no %s in sight", qPrintable(name));
    return *found;
}

QQuickItem &SheetStage::piece(const QQuickItem &of, const QString &name) {
    auto *const found = of.findChild<QQuickItem *>(name);
    if (!found)
        qFatal("%s has no %s", qPrintable(of.objectName()), qPrintable(name));
    return *found;
}

QString SheetStage::place() const {
    QStringList names;
    for (const QQuickItem *at = window().activeFocusItem(); at; at = at->parentItem()) {
        const QString name = at->objectName();
        if (isCellOrRow(name))
            return name + u' ' + names.value(0);
        if (!name.isEmpty())
            names.append(name);
    }
    return names.value(0);
}

bool SheetStage::tabTo(const QString &name) {
    constexpr int more = 60;
    for (int i = 0; i < more && focused() != name; ++i)
        press(Qt::Key_Tab);
    return focused() == name;
}

void SheetStage::retype(QQuickItem &field, const QString &text) {
    click(field);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Backspace);
    type(text);
}

QStringList SheetStage::told() {
    QStringList told;
    QQuickItem *const dialog = item("content").parentItem();
    if (QAccessibleInterface *const seen = accessible(*dialog))
        tell(*seen, told);
    return told;
}

} // namespace tovarin
