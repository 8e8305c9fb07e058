// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/SavedFrame.h"
#include "platform/UserDefaults.h"

#include <QObject>
#include <QTimer>
#include <QWindow>

namespace tovarin {

/// Puts a window where it was when it was last seen, and remembers where it is: in the user
/// defaults, under "<name>.frame", as SavedFrame's text. A text that cannot be read counts as none.
///
/// A move of the window is saved once, when it has been over for a moment, and otherwise when the
/// window is hidden or closed and when this object ends; a window that stands still costs nothing.
/// While it is maximised, or fills the screen, the frame that it had before is kept.
///
/// The window and the defaults are the caller's and outlive it. Needs a QGuiApplication.
class WindowFrame final : public QObject {
    Q_OBJECT

public:
    /// Whether the display server tells a program where its windows are. Wayland's never does, and
    /// each window seems to be at 0, 0 there: then only the size is restored, and the position that
    /// was saved elsewhere is kept.
    enum class Positions { told, hidden };
    static Positions positionsHere();

    /// Gives the window its place. It must not be visible, and its minimum size must be
    /// set. Show it with QWindow::setVisible(true): show() would undo that it is maximised.
    WindowFrame(QWindow &window, const QString &name, UserDefaults &defaults,
                Positions positions = positionsHere());
    ~WindowFrame() override;

private:
    void restore();
    void noticeChange();
    void noticeVisibility(bool visible);
    void saveUnsaved();
    void save();

    QWindow &m_window;
    const QString m_key;
    UserDefaults &m_defaults;
    const Positions m_positions;
    SavedFrame m_frame;
    QTimer m_unsaved; ///< Runs from a change until it is saved.
};

} // namespace tovarin
