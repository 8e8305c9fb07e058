// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/WindowFrame.h"

#include <QGuiApplication>
#include <QScreen>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr auto restTime = 300ms;

QList<QRect> availableScreens() {
    QList<QRect> areas;
    for (const QScreen *screen : QGuiApplication::screens())
        areas.append(screen->availableGeometry());
    return areas;
}

} // namespace

WindowFrame::Positions WindowFrame::positionsHere() {
    return QGuiApplication::platformName().startsWith(u"wayland"_s) ? Positions::hidden
                                                                    : Positions::told;
}

WindowFrame::WindowFrame(QWindow &window, const QString &name, UserDefaults &defaults,
                         Positions positions)
    : m_window(window), m_key(name + u".frame"_s), m_defaults(defaults), m_positions(positions) {
    restore();
    m_unsaved.setSingleShot(true);
    m_unsaved.setInterval(restTime);
    connect(&m_unsaved, &QTimer::timeout, this, &WindowFrame::save);
    connect(&window, &QWindow::xChanged, this, &WindowFrame::noticeChange);
    connect(&window, &QWindow::yChanged, this, &WindowFrame::noticeChange);
    connect(&window, &QWindow::widthChanged, this, &WindowFrame::noticeChange);
    connect(&window, &QWindow::heightChanged, this, &WindowFrame::noticeChange);
    connect(&window, &QWindow::windowStateChanged, this, &WindowFrame::noticeChange);
    connect(&window, &QWindow::visibleChanged, this, &WindowFrame::noticeVisibility);
}

WindowFrame::~WindowFrame() {
    saveUnsaved();
}

void WindowFrame::restore() {
    const QList<QRect> screens = availableScreens();
    const QSize minimum = m_window.minimumSize();
    const auto saved = SavedFrame::fromText(m_defaults.text(m_key).value_or(QString()));
    m_frame = saved.value_or(SavedFrame{firstFrame(minimum, screens)});
    if (m_positions == Positions::hidden) {
        m_frame.rect.setSize(fittedSize(m_frame.rect.size(), minimum, screens));
        m_window.resize(m_frame.rect.size());
    } else {
        m_frame.rect = fitted(m_frame.rect, minimum, screens);
        m_window.setGeometry(m_frame.rect);
    }
    if (m_frame.maximised)
        m_window.setWindowState(Qt::WindowMaximized);
}

void WindowFrame::noticeChange() {
    if (m_window.isVisible())
        m_unsaved.start();
}

void WindowFrame::noticeVisibility(bool visible) {
    if (!visible)
        saveUnsaved();
}

void WindowFrame::saveUnsaved() {
    if (!m_unsaved.isActive())
        return;
    m_unsaved.stop();
    save();
}

void WindowFrame::save() {
    const Qt::WindowStates states = m_window.windowStates();
    if (states & Qt::WindowMinimized)
        return;
    const SavedFrame before = m_frame;
    m_frame.maximised = states & (Qt::WindowMaximized | Qt::WindowFullScreen);
    if (states == Qt::WindowNoState) {
        if (m_positions == Positions::told)
            m_frame.rect.moveTopLeft(m_window.position());
        m_frame.rect.setSize(m_window.size());
    }
    if (m_frame != before)
        m_defaults.setText(m_key, m_frame.text());
}

} // namespace tovarin
