// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/scan/reading/PdfMaker.h"

#include <QString>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

namespace tovarin {

namespace {

QByteArray number(qsizetype value) {
    return QByteArray::number(static_cast<qlonglong>(value));
}

QByteArray stream(const QByteArray &content) {
    return "<</Length " + number(content.size()) + ">>\nstream\n" + content + "\nendstream";
}

QByteArray reference(qsizetype object) {
    return number(object) + " 0 R";
}

QByteArray unicodeMap(const QList<char32_t> &unicode) {
    QByteArray map = "/CIDInit /ProcSet findresource begin begincmap\n"
                     "1 begincodespacerange <00> <ff> endcodespacerange\n" +
                     number(unicode.size()) + " beginbfchar\n";
    char code = 'A';
    for (const char32_t character : unicode) {
        const QString text = QString::fromUcs4(&character, 1);
        map += '<' + QByteArray(1, code++).toHex() + "> <";
        for (const QChar unit : text)
            map += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
        map += ">\n";
    }
    return map + "endbfchar endcmap end";
}

/// The objects, their table and the trailer. The first object is the catalogue.
QByteArray file(const QList<QByteArray> &objects) {
    QByteArray pdf = "%PDF-1.5\n";
    QByteArray table = "0000000000 65535 f \n";
    for (qsizetype i = 0; i < objects.size(); ++i) {
        table += number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
        pdf += number(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const QByteArray count = number(objects.size() + 1);
    const QByteArray start = number(pdf.size());
    return pdf + "xref\n0 " + count + '\n' + table + "trailer\n<</Root 1 0 R/Size " + count +
           ">>\nstartxref\n" + start + "\n%%EOF\n";
}

} // namespace

QByteArray pdfOf(const QList<PdfPage> &pages, const QByteArray &inherited,
                 const QList<char32_t> &unicode) {
    constexpr qsizetype tree = 2;
    QList<QByteArray> objects = {
        "<</Type/Catalog/Pages 2 0 R>>",
        {},
        "<</Type/Font/Subtype/Type1/BaseFont/Helvetica/Encoding/WinAnsiEncoding>>",
        "<</Type/Font/Subtype/Type1/BaseFont/Helvetica/Encoding/WinAnsiEncoding/ToUnicode 5 0 R>>",
        stream(unicodeMap(unicode))};
    QByteArray kids;
    for (const PdfPage &page : pages) {
        const qsizetype object = objects.size() + 1;
        kids += reference(object) + ' ';
        objects.append("<</Type/Page/Parent " + reference(tree) + "/Contents " +
                       reference(object + 1) + page.entries + ">>");
        objects.append(stream(page.content));
    }
    objects[tree - 1] = "<</Type/Pages/Kids[" + kids + "]/Count " + number(pages.size()) +
                        "/Resources<</Font<</F1 3 0 R/F2 4 0 R>>>>" + inherited + ">>";
    return file(objects);
}

QByteArray lines(const QList<QByteArray> &lines, const char *font) {
    QByteArray content = "BT /" + QByteArray(font) + " 10 Tf 16 TL 20 270 Td ";
    for (const QByteArray &line : lines)
        content += '(' + line + ") Tj T* ";
    return content + "ET ";
}

QByteArray inkedRectangle(int x, int y, int width, int height) {
    return "0.7843 0.1569 0.1569 rg " + number(x) + ' ' + number(y) + ' ' + number(width) + ' ' +
           number(height) + " re f ";
}

QByteArray scan() {
    return "q 200 0 0 300 0 0 cm BI /W 1 /H 1 /CS /RGB /BPC 8 /F /AHx ID c82828> EI Q ";
}

QByteArray encrypted(const QByteArray &pdf, const char *userPassword) {
    QPDF document;
    document.processMemoryFile("bill", pdf.constData(), static_cast<std::size_t>(pdf.size()));
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setR6EncryptionParameters(userPassword, "owner", false, false, false, false, false,
                                     false, qpdf_r3p_none, true);
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char *>(buffer->getBuffer()),
            static_cast<qsizetype>(buffer->getSize())};
}

} // namespace tovarin
