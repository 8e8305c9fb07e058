# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""PDF files as other programs write them; each has its own fonts, orders and text layers."""
import os
import subprocess
import tempfile

import pdf_files
from PyQt6 import QtCore, QtGui

# Without a screen, and in nobody's time zone; the application has to outlive all that draws.
os.environ.update(QT_QPA_PLATFORM="offscreen", TZ="UTC")
_application = QtGui.QGuiApplication(["bills"])


def by_qt(page):
    """The page's texts at their places, as Qt writes them."""
    scale = 595 / page.width
    buffer = QtCore.QBuffer()
    buffer.open(QtCore.QIODevice.OpenModeFlag.WriteOnly)
    writer = QtGui.QPdfWriter(buffer)
    writer.setResolution(72)
    writer.setPageSize(QtGui.QPageSize(QtCore.QSizeF(595, page.height * scale),
                                       QtGui.QPageSize.Unit.Point))
    writer.setPageMargins(QtCore.QMarginsF())
    painter = QtGui.QPainter(writer)
    painter.scale(scale, scale)
    for piece in page.pieces:
        font = QtGui.QFont()
        font.setFamilies([name.strip() for name in page.look.family.split(",")])
        font.setPixelSize(round(piece.size))
        painter.setFont(font)
        painter.drawText(QtCore.QPointF(piece.left, piece.baseline), piece.text)
    painter.end()
    return pdf_files.dated(bytes(buffer.data()))


def by_ghostscript(data):
    """The document, written anew by Ghostscript."""
    with tempfile.TemporaryDirectory() as folder:
        paths = [os.path.join(folder, name) for name in ("in.pdf", "out.pdf")]
        with open(paths[0], "wb") as file:
            file.write(data)
        subprocess.run(["gs", "-q", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite",
                        f"-sOutputFile={paths[1]}", paths[0]], check=True)
        with open(paths[1], "rb") as file:
            return pdf_files.dated(file.read())
