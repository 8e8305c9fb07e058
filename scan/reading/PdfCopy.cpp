// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/PdfCopy.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

namespace tovarin {

namespace {

// qpdf makes a page of each entry of the tree, be it the same a million times, and keeps them all.
constexpr std::size_t mostTreeEntries = 20'000;

/// Throws when the tree of pages has more entries than a bill can have.
void checkSize(QPDF &document) {
    std::vector<QPDFObjectHandle> waiting = {document.getRoot().getKey("/Pages")};
    for (std::size_t seen = 0; !waiting.empty(); ++seen) {
        QPDFObjectHandle kids = waiting.back().isDictionary() ? waiting.back().getKey("/Kids")
                                                              : QPDFObjectHandle::newNull();
        waiting.pop_back();
        const auto count = kids.isArray() ? static_cast<std::size_t>(kids.getArrayNItems()) : 0;
        if (seen + waiting.size() + count > mostTreeEntries)
            throw std::length_error("too many pages");
        for (std::size_t i = 0; i < count; ++i)
            waiting.push_back(kids.getArrayItem(static_cast<int>(i)));
    }
}

void open(QPDF &document, const QByteArray &pdf) {
    document.setSuppressWarnings(true);
    document.processMemoryFile("bill", pdf.constData(), static_cast<std::size_t>(pdf.size()));
    checkSize(document);
    document.pushInheritedAttributesToPage();
}

/// The page's media box; a page without one is as large as Letter paper, for Qt PDF too.
QSizeF mediaBoxOf(QPDFObjectHandle page) {
    QPDFObjectHandle box = page.getKey("/MediaBox");
    if (!box.isRectangle())
        return {612, 792};
    const QPDFObjectHandle::Rectangle corners = box.getArrayAsRectangle();
    return {std::abs(corners.urx - corners.llx), std::abs(corners.ury - corners.lly)};
}

/// Makes the whole media box visible.
void uncrop(QPDFObjectHandle page) {
    for (const char *box : {"/CropBox", "/TrimBox", "/BleedBox", "/ArtBox"})
        page.removeKey(box);
}

/// Makes a document of just these pages: a plain tree of pages, whose count is right, and the
/// layers. Nothing else is copied then.
void keepOnly(QPDF &document, const std::vector<QPDFObjectHandle> &pages) {
    QPDFObjectHandle root = document.getRoot();
    for (const std::string &key : root.getKeys()) {
        if (key != "/Type" && key != "/OCProperties")
            root.removeKey(key);
    }
    QPDFObjectHandle tree = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
    tree.replaceKey("/Type", QPDFObjectHandle::newName("/Pages"));
    tree.replaceKey("/Kids", QPDFObjectHandle::newArray(pages));
    tree.replaceKey("/Count", QPDFObjectHandle::newInteger(static_cast<long long>(pages.size())));
    for (QPDFObjectHandle page : pages)
        page.replaceKey("/Parent", tree);
    root.replaceKey("/Pages", tree);
    document.updateAllPagesCache();
}

QByteArray written(QPDF &document) {
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setPreserveEncryption(false);
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setObjectStreamMode(qpdf_o_disable);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char *>(buffer->getBuffer()),
            static_cast<qsizetype>(buffer->getSize())};
}

bool isPicture(QPDFObjectHandle object) {
    return object.isStream() && object.getDict().getKey("/Subtype").isNameAndEquals("/Image");
}

} // namespace

QByteArray pdfCopyForText(const QByteArray &pdf) {
    QPDF document;
    open(document, pdf);
    const std::vector<QPDFObjectHandle> pages = document.getAllPages();
    for (QPDFObjectHandle page : pages) {
        uncrop(page);
        page.removeKey("/Rotate");
    }
    keepOnly(document, pages);
    for (const QPDFObjectHandle &object : document.getAllObjects()) {
        if (isPicture(object))
            document.replaceObject(object.getObjGen(), QPDFObjectHandle::newNull());
    }
    return written(document);
}

PdfPages pdfCopyForDrawing(const QByteArray &pdf, int mostPages) {
    QPDF document;
    open(document, pdf);
    PdfPages result;
    std::vector<QPDFObjectHandle> pages = document.getAllPages();
    pages.resize(std::min(pages.size(), static_cast<std::size_t>(mostPages)));
    for (const QPDFObjectHandle &page : pages) {
        uncrop(page);
        result.mediaBoxes.append(mediaBoxOf(page));
    }
    keepOnly(document, pages);
    result.pdf = written(document);
    return result;
}

} // namespace tovarin
