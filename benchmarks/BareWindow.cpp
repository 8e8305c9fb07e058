// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The least that a program of this toolkit does: a window with a word on it, drawn as Tovarin
// draws. tools/measure-start measures Tovarin against it.

#include <QApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QQuickWindow>

#include <memory>

using namespace Qt::Literals::StringLiterals;

int main(int argc, char **argv) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickStyle::setStyle(u"Basic"_s);
    const QApplication application(argc, argv);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\n"
                      "import QtQuick.Controls.Basic\n"
                      "Window {\n"
                      "    width: 960; height: 640; visible: true; color: '#0F0F11'\n"
                      "    Label { anchors.centerIn: parent; text: 'Tovarin'; color: '#E8E8E8' }\n"
                      "}\n",
                      QUrl());
    const std::unique_ptr<QObject> window(component.create());
    return window ? QApplication::exec() : EXIT_FAILURE;
}
