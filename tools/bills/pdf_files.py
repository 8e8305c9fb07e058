# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Writes PDF files: bills as vectors with their text, and scans as plain as a scanner writes them."""
import io
import zlib

import cairo
import cv2

# The day that the files say they were made: the same at each drawing.
MADE_ON = "2025-03-08T12:00:00Z"


def with_text(pages):
    """A PDF of these pages with a text layer, each page 72 units to the inch and A4-wide at most."""
    out = io.BytesIO()
    surface = cairo.PDFSurface(out, 595, 842)
    surface.set_metadata(cairo.PDF_METADATA_CREATE_DATE, MADE_ON)
    for page in pages:
        scale = 0.75 if page.width < 500 else 595 / page.width
        surface.set_size(page.width * scale, page.height * scale)
        page.show(surface, scale)
        surface.show_page()
    surface.finish()
    return out.getvalue()


class Scan:
    """One page that is a picture. `text` is the content stream of its text layer, if any; `crop`
    and `rotate` are what the page says of itself."""

    def __init__(self, picture, dots_per_inch=150, quality=70, text=b"", crop=None, rotate=0):
        self.height, self.width = picture.shape[:2]
        self.jpeg = cv2.imencode(".jpg", picture, [cv2.IMWRITE_JPEG_QUALITY, quality])[1].tobytes()
        self.space = b"/DeviceGray" if picture.ndim == 2 else b"/DeviceRGB"
        self.size = [72 * length / dots_per_inch for length in (self.width, self.height)]
        self.text, self.crop, self.rotate = text, crop, rotate


class Blank:
    """A page with nothing on it, or only with a text layer."""

    def __init__(self, size=(595, 842), text=b""):
        self.size, self.text, self.crop, self.rotate, self.jpeg = size, text, None, 0, None


def _stream(entries, data):
    return b"<< %s /Length %d >>\nstream\n%s\nendstream" % (entries, len(data), data)


def scanned(pages):
    """A PDF of Scan and Blank pages; an empty list gives a document without any page."""
    objects = [b"<< /Type /Catalog /Pages 2 0 R >>", None,
               b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"]

    def add(content):
        objects.append(content)
        return len(objects)

    kids = []
    for page in pages:
        resources, drawing = b"/Font << /F 3 0 R >>", page.text
        if page.jpeg:
            image = add(_stream(b"/Type /XObject /Subtype /Image /Width %d /Height %d /BitsPerComponent 8"
                                b" /ColorSpace %s /Filter /DCTDecode" % (
                                    page.width, page.height, page.space), page.jpeg))
            resources += b" /XObject << /I %d 0 R >>" % image
            drawing = b"q %.2f 0 0 %.2f 0 0 cm /I Do Q\n" % tuple(page.size) + drawing
        content = add(_stream(b"/Filter /FlateDecode", zlib.compress(drawing)))
        extra = b" /CropBox [%.2f %.2f %.2f %.2f]" % tuple(page.crop) if page.crop else b""
        extra += b" /Rotate %d" % page.rotate if page.rotate else b""
        kids.append(add(b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 %.2f %.2f]%s /Contents %d 0 R"
                        b" /Resources << %s >> >>" % (*page.size, extra, content, resources)))
    objects[1] = b"<< /Type /Pages /Count %d /Kids [%s] >>" % (
        len(kids), b" ".join(b"%d 0 R" % kid for kid in kids))
    file, places = b"%PDF-1.4\n%\xe2\xe3\xcf\xd3\n", []
    for number, content in enumerate(objects, 1):
        places.append(len(file))
        file += b"%d 0 obj\n%s\nendobj\n" % (number, content)
    table = b"".join(b"%010d 00000 n \n" % place for place in places)
    return file + (b"xref\n0 %d\n0000000000 65535 f \n%strailer\n<< /Size %d /Root 1 0 R >>\n"
                   b"startxref\n%d\n%%%%EOF\n" % (len(objects) + 1, table, len(objects) + 1, len(file)))
