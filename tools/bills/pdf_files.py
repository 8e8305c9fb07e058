# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Writes PDF files: bills as vectors with their text, and scans as plain as a scanner writes them."""
import io
import re
import zlib

import cairo
import cv2
from PIL import Image, TiffImagePlugin

# The day that the files say they were made: the same at each drawing.
MADE_ON = "2025-03-08T12:00:00Z"


def dated(data):
    """The file with that day for the day on which it was made, and no number of its own. Nothing
    moves: its table of places stays true."""
    data = re.sub(rb"Date ?\(D:\d{14}", lambda match: match[0][:-14] + b"20250308120000", data)
    data = re.sub(rb"Date>[-T:0-9]{19}Z<", b"Date>%s<" % MADE_ON.encode(), data)
    data = re.sub(rb"uuid:[-0-9a-f]{36}", b"uuid:" + b"0" * 36, data)
    return re.sub(rb"/ID ?\[\s*<[0-9A-Fa-f]{32}>\s*<[0-9A-Fa-f]{32}>",
                  lambda match: re.sub(rb"[0-9A-Fa-f]{32}", b"0" * 32, match[0]), data)


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
        self.data = self._packed(picture, quality)
        self.space = b"/DeviceGray" if picture.ndim == 2 else b"/DeviceRGB"
        self.size = [72 * length / dots_per_inch for length in (self.width, self.height)]
        self.text, self.crop, self.rotate = text, crop, rotate

    # how the picture is packed, and how many bits a sample of it has
    form, bits = b"/Filter /DCTDecode", 8

    def _packed(self, picture, quality):
        return cv2.imencode(".jpg", picture, [cv2.IMWRITE_JPEG_QUALITY, quality])[1].tobytes()


class LosslessScan(Scan):
    """A page that is a grey picture, packed without loss."""

    form = b"/Filter /FlateDecode"

    def _packed(self, picture, quality):
        return zlib.compress(picture.tobytes(), 9)


class Fax(Scan):
    """A page that is black and white only, packed as a fax machine does."""

    bits = 1

    def _packed(self, picture, quality):
        self.form = b"/Filter /CCITTFaxDecode /DecodeParms << /K -1 /Columns %d /Rows %d >>" % (
            self.width, self.height)
        TiffImagePlugin.STRIP_SIZE = picture.size  # all in one strip, which is what a PDF file holds
        file = io.BytesIO()
        Image.fromarray(picture).point(lambda value: 255 if value > 150 else 0, "1").save(
            file, "TIFF", compression="group4")
        tags = Image.open(file).tag_v2
        (place,), (length,) = (tags[tag] for tag in (TiffImagePlugin.STRIPOFFSETS,
                                                     TiffImagePlugin.STRIPBYTECOUNTS))
        return file.getvalue()[place:place + length]


class Packed:
    """A page that is one flat picture of that many pixels, packed twice, so that next to nothing
    of it is in the file."""

    def __init__(self, width, height, size):
        self.width, self.height, self.size = width, height, size
        self.text, self.crop, self.rotate = b"", None, 0
        self.space, self.form, self.bits = b"/DeviceGray", b"/Filter [/FlateDecode /FlateDecode]", 8
        packer, row = zlib.compressobj(9), b"\xff" * width
        once = b"".join(packer.compress(row) for _ in range(height)) + packer.flush()
        self.data = zlib.compress(once, 9)


class Blank:
    """A page with nothing on it, or only with a text layer."""

    def __init__(self, size=(595, 842), text=b""):
        self.size, self.text, self.crop, self.rotate, self.data = size, text, None, 0, None


def _stream(entries, data):
    return b"<< %s /Length %d >>\nstream\n%s\nendstream" % (entries, len(data), data)


def scanned(pages):
    """A PDF of pages as the classes above make them; an empty list gives a document without any page."""
    objects = [b"<< /Type /Catalog /Pages 2 0 R >>", None,
               b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"]

    def add(content):
        objects.append(content)
        return len(objects)

    kids = []
    for page in pages:
        resources, drawing = b"/Font << /F 3 0 R >>", page.text
        if page.data:
            image = add(_stream(b"/Type /XObject /Subtype /Image /Width %d /Height %d"
                                b" /BitsPerComponent %d /ColorSpace %s %s" % (
                                    page.width, page.height, page.bits, page.space, page.form),
                                page.data))
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
