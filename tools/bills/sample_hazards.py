# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Pictures that are odd or broken."""
import io
import struct
import zlib

import cv2
import numpy
from PIL import Image, TiffImagePlugin

EXIF_ORIENTATION = 274
# What has to be done to an upright picture so that a reader who obeys the value sees it upright.
STORED = {3: Image.Transpose.ROTATE_180, 6: Image.Transpose.ROTATE_90, 8: Image.Transpose.ROTATE_270,
          2: Image.Transpose.FLIP_LEFT_RIGHT}


def encoded(picture, form, **options):
    out = io.BytesIO()
    picture.save(out, form, **options)
    return out.getvalue()


def flat_png(side):
    """A white RGB picture, written piece by piece: as pixels it would fill the memory."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    packer = zlib.compressobj(9)
    row = b"\0" + b"\xff" * (3 * side)
    data = b"".join(packer.compress(row) for _ in range(side)) + packer.flush()
    head = struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", data) + chunk(b"IEND", b"")


def with_flipped_bytes(data, count=40):
    """Damaged somewhere behind the head."""
    chance, broken = numpy.random.RandomState(3), bytearray(data)
    for place in chance.randint(len(data) // 4, len(data) - 20, count):
        broken[place] ^= 0xFF
    return bytes(broken)


def transparent(page):
    """Only the letters are opaque."""
    grey = numpy.asarray(Image.fromarray(page.picture(2)).convert("L"))
    picture = numpy.zeros(grey.shape + (4,), numpy.uint8)
    picture[..., 3] = 255 - grey
    return Image.fromarray(picture, "RGBA")


def add(samples):
    def bill(layout, width=390):
        page, truth, _ = samples.bill(f"hazard {layout}", layout, width=width)
        picture = Image.fromarray(cv2.cvtColor(page.picture(2), cv2.COLOR_BGR2RGB))
        return page, picture, truth | {"kind": "2x", "group": "hazards"}

    def keep(name, data, purpose, truth=None):
        samples.add(f"hazards/{name}", data, purpose, truth)

    page, picture, truth = bill("payment-result")
    grey = picture.convert("L")
    png, jpeg = encoded(picture, "PNG", optimize=True), encoded(picture, "JPEG", quality=88)
    keep("grey.png", encoded(grey, "PNG", optimize=True), "one channel", truth)
    keep("palette.png", encoded(picture.quantize(64), "PNG", optimize=True), "64 colours", truth)
    keep("two-colours.png", encoded(grey.point(lambda value: 255 if value > 190 else 0, "1"), "PNG"),
         "one bit a pixel", truth)
    wide = cv2.resize(numpy.asarray(grey), None, fx=0.75, fy=0.75, interpolation=cv2.INTER_AREA)
    keep("sixteen-bit.png", cv2.imencode(".png", wide.astype(numpy.uint16) * 257)[1].tobytes(),
         "16 bits a channel", truth)
    keep("transparent-ground.png", encoded(transparent(page), "PNG", optimize=True),
         "black letters on nothing", truth)
    keep("cmyk.jpg", encoded(picture.convert("CMYK"), "JPEG", quality=85), "four printing colours", truth)
    keep("grey.jpg", encoded(grey, "JPEG", quality=85), "one channel", truth)
    keep("progressive.jpg", encoded(picture, "JPEG", quality=85, progressive=True),
         "written in passes", truth)

    _, turned, turned_truth = bill("subscription-management")
    for value, way in STORED.items():
        exif = Image.Exif()
        exif[EXIF_ORIENTATION] = value
        keep(f"exif-orientation-{value}.jpg",
             encoded(turned.transpose(way), "JPEG", quality=85, exif=exif),
             f"upright only for who obeys its orientation, {value}", turned_truth)

    _, other, other_truth = bill("purchase")
    keep("bill.gif", encoded(other.quantize(64), "GIF"), "GIF", other_truth)
    keep("animated.gif", encoded(other.quantize(64), "GIF", save_all=True, duration=500, loop=0,
                                 append_images=[Image.new("P", other.size)]),
         "the bill and then a flat picture, in turn; the truth is the first one's", other_truth)
    keep("bill.webp", encoded(other, "WEBP", quality=80), "WebP, lossy", other_truth)
    keep("bill-lossless.webp", encoded(other, "WEBP", lossless=True), "WebP, lossless", other_truth)
    TiffImagePlugin.WRITE_LIBTIFF = False
    keep("bill.tiff", encoded(other.quantize(64), "TIFF", compression="tiff_lzw"), "TIFF, LZW",
         other_truth)
    keep("bill.bmp", encoded(other.quantize(64), "BMP"), "BMP, palette", other_truth)

    keep("jpeg-named.png", jpeg, "a JPEG that is called PNG", truth)
    keep("png-named.jpg", png, "a PNG that is called JPEG", truth)
    keep("document-named.png", page.document(), "a PDF document that is called PNG")
    keep("UPPER-CASE.PNG", png, "an ending in capitals", truth)
    keep("账单 with blanks & 'quotes'.png", png, "a name that needs care", truth)

    keep("corrupted.png", with_flipped_bytes(png), "bytes inside are wrong")
    keep("corrupted.jpg", with_flipped_bytes(jpeg, 12), "bytes inside are wrong; parts may be seen")
    keep("cut-in-the-middle.png", png[:len(png) // 2], "the second half is missing")
    keep("cut-in-the-middle.jpg", jpeg[:len(jpeg) // 2],
         "the second half is missing; the first can be seen")
    keep("head-only.png", png[:33], "nothing behind the head")
    keep("empty.png", b"", "no bytes at all")
    keep("text-named.png", "合计 ¥45.00\n2025-03-08\n".encode(), "a text file that is called PNG")
    keep("no-text.jpg", encoded(plain(), "JPEG", quality=60), "a photograph without letters")
    keep("white.png", encoded(Image.new("L", (800, 1200), 255), "PNG", optimize=True), "white paper")
    keep("one-pixel.png", encoded(Image.new("RGB", (1, 1), (9, 9, 9)), "PNG"), "a single pixel")
    keep("flat-12000x12000.png", flat_png(12000), "0.4 MB as a file, 432 MB as pixels, nothing on it")
    tall, tall_truth = stacked(samples)
    keep("very-tall.png", encoded(tall, "PNG", optimize=True), "a long screenshot", tall_truth)


def plain():
    chance = numpy.random.RandomState(5)
    coarse = chance.randint(40, 200, (9, 7, 3), dtype=numpy.uint8)
    return Image.fromarray(cv2.resize(coarse, (700, 900), interpolation=cv2.INTER_CUBIC))


def stacked(samples):
    """Several bills below each other, as a program that scrolls while it takes a picture makes it."""
    parts = [samples.bill(f"tall {i}", layout, width=390)[:2]
             for i, layout in enumerate(("payment-result", "message", "order-details",
                                         "purchase-history"))]
    pictures = [page.picture(2) for page, _ in parts]
    truths = [truth for _, truth in parts]
    fields = {key: [text for told in truths for text in told["fields"][key]]
              for key in ("amounts", "dates", "dates_printed")}
    whole = cv2.cvtColor(numpy.vstack(pictures), cv2.COLOR_BGR2RGB)
    return Image.fromarray(whole), truths[0] | {
        "kind": "2x", "group": "hazards", "layout": "several",
        "rows": [row for told in truths for row in told["rows"]],
        "fields": fields | {"name": truths[0]["fields"]["name"]}}
