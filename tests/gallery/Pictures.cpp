// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/gallery/Pictures.h"

#include <QFont>
#include <QPainter>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <algorithm>
#include <array>
#include <map>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::gallery {

namespace {

enum class State { Normal, Hovered, Pressed, Focused, Disabled, Open };

struct Column {
    State state;
    QString title;
};

const std::array columns{
    Column{State::Normal, u"normal"_s},     Column{State::Hovered, u"hovered"_s},
    Column{State::Pressed, u"pressed"_s},   Column{State::Focused, u"focused"_s},
    Column{State::Disabled, u"disabled"_s}, Column{State::Open, u"open"_s},
};

constexpr QPoint nowhere(2, -2);
constexpr int titleHeight = 22;
constexpr int cellWidthWhereOpen = 320;

class Stage {
public:
    Stage(QQuickWindow &window, QQuickItem &entry)
        : m_window(window)
        , m_control(*entry.property("control").value<QQuickItem *>())
        , m_area(entry.mapRectToScene(entry.boundingRect()).toRect())
        , m_openHeight(entry.property("openHeight").toInt()) {
        for (const char *const name : kept)
            m_before[name] = m_control.property(name);
    }

    bool has(State state) const { return state != State::Open || m_openHeight > 0; }

    QImage shot(State state) {
        enter(state);
        QRect area = m_area;
        if (state == State::Open) {
            area.setHeight(m_openHeight);
            area.setWidth(cellWidthWhereOpen);
            // What opens may do so a moment later, and be wider than what opens it.
            QTest::qWait(1000);
        }
        const QImage whole = picture(m_window);
        const qreal ratio = whole.devicePixelRatio();
        QImage part =
            whole.copy(QRectF(area.topLeft() * ratio, area.size() * ratio).toAlignedRect());
        part.setDevicePixelRatio(ratio);
        leave(state);
        return part;
    }

private:
    QPoint middle() const {
        return m_control.mapRectToScene(m_control.boundingRect()).center().toPoint();
    }

    void enter(State state) {
        switch (state) {
        case State::Normal:
            break;
        case State::Hovered:
            QTest::mouseMove(&m_window, middle());
            break;
        case State::Pressed:
            QTest::mouseMove(&m_window, middle());
            QTest::mousePress(&m_window, Qt::LeftButton, {}, middle());
            break;
        case State::Focused:
            // What holds several goes by the one that Tab reaches.
            (m_control.isFocusScope() && !m_control.activeFocusOnTab()
                 ? *m_control.nextItemInFocusChain()
                 : m_control)
                .forceActiveFocus(Qt::TabFocusReason);
            break;
        case State::Disabled:
            m_control.setEnabled(false);
            break;
        case State::Open:
            if (m_control.inherits("QQuickTextField")) {
                QTest::mouseClick(&m_window, Qt::RightButton, {}, middle());
            } else if (m_openHeight > 96) {
                QTest::mouseClick(&m_window, Qt::LeftButton, {}, middle());
            } else {
                QTest::mouseMove(&m_window, middle());
            }
            break;
        }
    }

    void leave(State state) {
        if (state == State::Pressed)
            QTest::mouseRelease(&m_window, Qt::LeftButton, {}, middle());
        // A press may have opened what it opens, too.
        if (state == State::Open || (state == State::Pressed && m_openHeight > 0))
            QTest::keyClick(&m_window, Qt::Key_Escape);
        QTest::mouseMove(&m_window, nowhere);
        m_control.setEnabled(true);
        QQuickItem *const focused = m_window.activeFocusItem();
        if (focused && focused != m_window.contentItem())
            focused->setFocus(false);
        for (const char *const name : kept)
            m_control.setProperty(name, m_before[name]);
        QCoreApplication::processEvents();
    }

    /// What a press changes, and is put back after it.
    static constexpr std::array kept{"checked", "currentIndex", "cursorPosition", "position"};

    QQuickWindow &m_window;
    QQuickItem &m_control;
    std::map<QByteArray, QVariant> m_before;
    QRect m_area;
    int m_openHeight;
};

QList<QQuickItem *> entriesOf(const QQuickWindow &window) {
    return window.contentItem()->findChildren<QQuickItem *>(u"entry"_s);
}

void write(QPainter &painter, QPoint where, const QString &text) {
    painter.drawText(where, text);
}

} // namespace

QImage picture(QQuickWindow &window) {
    QCoreApplication::processEvents();
    QImage image = window.grabWindow();
    image.setDevicePixelRatio(window.effectiveDevicePixelRatio());
    return image;
}

QImage pictureOfStates(QQuickWindow &window) {
    const qreal ratio = window.effectiveDevicePixelRatio();
    const QList<QQuickItem *> entries = entriesOf(window);
    int cellWidth = 0;
    int height = titleHeight;
    for (const QQuickItem *entry : entries) {
        cellWidth = std::max(cellWidth, qRound(entry->width()));
        height +=
            titleHeight + std::max(qRound(entry->height()), entry->property("openHeight").toInt());
    }
    const QSize size(cellWidth * static_cast<int>(columns.size() - 1) + cellWidthWhereOpen, height);
    QImage sheet(size * ratio, QImage::Format_RGB32);
    sheet.setDevicePixelRatio(ratio);
    sheet.fill(window.color());

    QPainter painter(&sheet);
    QFont font(u"Poppins"_s);
    font.setPixelSize(11);
    painter.setFont(font);
    painter.setPen(QColor(0x8A, 0x8A, 0x8A));
    int x = 0;
    for (const Column &column : columns) {
        write(painter, {x + 12, 15}, column.title);
        x += cellWidth;
    }
    int y = titleHeight;
    for (QQuickItem *entry : entries) {
        Stage stage(window, *entry);
        write(painter, {12, y + 15}, entry->property("title").toString());
        y += titleHeight;
        x = 0;
        for (const Column &column : columns) {
            if (stage.has(column.state))
                painter.drawImage(QPoint(x, y), stage.shot(column.state));
            x += cellWidth;
        }
        y += std::max(qRound(entry->height()), entry->property("openHeight").toInt());
    }
    return sheet;
}

QImage pictureOfSheet(QQuickWindow &window) {
    auto *const sheet = window.contentItem()->findChild<QObject *>(u"sheet"_s);
    QMetaObject::invokeMethod(sheet, "open");
    if (!QTest::qWaitFor([sheet] { return sheet->property("opened").toBool(); }))
        return {};
    return picture(window);
}

} // namespace tovarin::gallery
