// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/FileDialogPanel.h"

#include "app/LocalizationManager.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QPixmapCache>
#include <QScopeGuard>
#include <QTranslator>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QList<QUrl> FileDialogPanel::run(const Request &request) {
    // English is what Qt's own dialog speaks by itself. Gone with the dialog.
    QTranslator chinese;
    if (LocalizationManager::shared().isZh() &&
        chinese.load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&chinese);

    // What the dialog has drawn its icons into is of no use to another one, which draws its own.
    const auto tidyUp = qScopeGuard(&QPixmapCache::clear);
    QWindow *window = QGuiApplication::focusWindow();
    QFileDialog dialog;
    dialog.winId(); // Makes the window that the next line looks for.
    dialog.windowHandle()->setTransientParent(window);
    // The panel of the status item, from which the program can be quit, goes on working.
    if (window)
        dialog.setWindowModality(Qt::WindowModal);
    dialog.setWindowTitle(request.message);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.allowMultiple ? QFileDialog::ExistingFiles
                                             : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    const QString patterns = fileNamePatterns(request.allowedContentTypes).join(u' ');
    dialog.setNameFilter(request.message + u" ("_s + patterns + u')');
    return dialog.exec() == QDialog::Accepted ? dialog.selectedUrls() : QList<QUrl>();
}

} // namespace tovarin
