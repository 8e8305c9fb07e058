#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""hostile_files.py FOLDER FAMILY...: writes files into FOLDER that were made to break, stop or
fill up who reads them, most of them far smaller than what they unpack to; those of the families, or
all. `manifest.json` there lists them in their
order, each with what the scanner makes of it: a "draft", "nothing", or "either" where that is a
matter of the time and memory at hand, or of the versions of libraries."""
import json
import os
import pathlib
import struct
import sys
import zlib

MEBI = 1 << 20

# --- what many of them are made of -------------------------------------------------------------


def repeated(block, count, tail):
    """The body of a deflated stream of `count` times the same block: each is packed by itself, so
    that they can be put in a row without packing them again."""
    packer = zlib.compressobj(9, zlib.DEFLATED, -15)
    piece = packer.compress(block) + packer.flush(zlib.Z_FULL_FLUSH)
    return piece * count + packer.compress(tail) + packer.flush(zlib.Z_FINISH)


def repeated_deflate(block, count, tail=b""):
    check = zlib.adler32(b"")
    for _ in range(count):
        check = zlib.adler32(block, check)
    return (b"\x78\xda" + repeated(block, count, tail) +
            struct.pack(">I", zlib.adler32(tail, check)))


def repeated_gzip(head, block, count, tail):
    """A gzip file; its checksum, which nobody gets to, is wrong."""
    packer = zlib.compressobj(9, zlib.DEFLATED, -15)
    return (b"\x1f\x8b\x08\0\0\0\0\0\0\3" + packer.compress(head) +
            packer.flush(zlib.Z_FULL_FLUSH) + repeated(block, count, tail) + b"\0" * 8)


def png_chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(width, height, *chunks, depth=8, colours=2, interlaced=0):
    header = struct.pack(">IIBBBBB", width, height, depth, colours, 0, 0, interlaced)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + b"".join(chunks) +
            png_chunk(b"IEND", b""))


def png_rows(width, height, bytes_a_pixel=3):
    return png_chunk(b"IDAT", zlib.compress((b"\0" + b"\xff" * (width * bytes_a_pixel)) * height))


def small_png(*chunks):
    return png(40, 20, *chunks, png_rows(40, 20))


def pdf(objects, trailer=b""):
    """A PDF file of these objects, the first of which is the catalogue."""
    out = bytearray(b"%PDF-1.5\n")
    table = bytearray(b"0000000000 65535 f \n")
    for number, body in enumerate(objects, 1):
        table += b"%010d 00000 n \n" % len(out)
        out += b"%d 0 obj\n" % number + body + b"\nendobj\n"
    start = len(out)
    out += (b"xref\n0 %d\n" % (len(objects) + 1) + table + b"trailer\n<</Root 1 0 R/Size %d" %
            (len(objects) + 1) + trailer + b">>\nstartxref\n%d\n%%%%EOF\n" % start)
    return bytes(out)


def stream(data, entries=b""):
    return b"<<" + entries + b"/Length %d>>\nstream\n" % len(data) + data + b"\nendstream"


def flate(data, entries=b""):
    return stream(zlib.compress(data), entries + b"/Filter/FlateDecode")


FONT = b"<</Type/Font/Subtype/Type1/BaseFont/Helvetica/Encoding/WinAnsiEncoding>>"


def one_page(content, *more, resources=b"", page=b"", box=b"[0 0 300 400]"):
    """One page. `content` is object 4, the font 5, and `more` the objects from 6 on."""
    return pdf([b"<</Type/Catalog/Pages 2 0 R>>", b"<</Type/Pages/Kids[3 0 R]/Count 1>>",
                b"<</Type/Page/Parent 2 0 R/MediaBox" + box + b"/Contents 4 0 R" + page +
                b"/Resources<</Font<</F1 5 0 R>>" + resources + b">>>>",
                content, FONT, *more])


TEXT = b"BT /F1 12 Tf 20 300 Td (Total $12.50) Tj ET "


def tiff(entries, next_directory=0, data=b""):
    """One directory; `entries` are (tag, type, count, value) with the value as it stands there."""
    body = struct.pack("<H", len(entries))
    for tag, kind, count, value in sorted(entries):
        body += struct.pack("<HHI", tag, kind, count)
        body += struct.pack("<I", value) if kind == 4 else struct.pack("<HH", value, 0)
    return b"II*\0" + struct.pack("<I", 8) + body + struct.pack("<I", next_directory) + data


def tiff_picture(width, height, packing, offset, length, rows=None):
    return [(256, 4, 1, width), (257, 4, 1, height), (258, 3, 1, 8), (259, 3, 1, packing),
            (262, 3, 1, 1), (273, 4, 1, offset), (277, 3, 1, 1), (278, 4, 1, rows or height),
            (279, 4, 1, length)]


def riff(*chunks):
    body = b"WEBP" + b"".join(kind + struct.pack("<I", len(data)) + data + b"\0" * (len(data) % 2)
                              for kind, data in chunks)
    return b"RIFF" + struct.pack("<I", len(body)) + body


def jpeg_segment(marker, data):
    return bytes([0xff, marker]) + struct.pack(">H", len(data) + 2) + data


def with_exif(jpeg, tiff_data):
    return jpeg[:2] + jpeg_segment(0xe1, b"Exif\0\0" + tiff_data) + jpeg[2:]


def svg(body, attributes='width="400" height="120"'):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
            f'{attributes}>{body}</svg>').encode()


# --- pictures ------------------------------------------------------------------------------------


def png_files():
    yield "png-header-60000x60000.png", "nothing", png(60000, 60000, png_rows(10, 10))
    yield "png-header-as-large-as-can-be.png", "nothing", png(2**31 - 1, 2**31 - 1, png_rows(10, 10))
    yield "png-without-size.png", "nothing", png(0, 0, png_rows(1, 1))
    yield "png-negative-chunk.png", "nothing", small_png()[:33] + b"\xff\xff\xff\xffIDAT" + b"x" * 99
    yield "png-wrong-checksum.png", "nothing", small_png()[:-20] + b"\0" + small_png()[-19:]
    row = b"\0" + b"\0" * (8 * 6400)
    yield ("png-bomb-of-250-megabytes.png", "either",
           png(6400, 5000, png_chunk(b"IDAT", repeated_deflate(row * 20, 250)), depth=16, colours=6))
    yield ("png-bomb-interlaced.png", "either",
           png(5000, 5000, png_chunk(b"IDAT", repeated_deflate(b"\0" * MEBI, 80)), interlaced=1))
    yield ("png-data-goes-on-for-64-megabytes.png", "draft",
           png(40, 20, png_chunk(b"IDAT", repeated_deflate(b"\0" * MEBI, 64))))
    yield ("png-200000-chunks.png", "draft",
           small_png(*[png_chunk(b"tEXt", b"Comment\0x")] * 200_000))
    yield ("png-text-bomb.png", "draft",
           small_png(*[png_chunk(b"zTXt", b"Comment\0\0" + repeated_deflate(b"a" * MEBI, 512))] * 4))
    yield ("png-profile-bomb.png", "draft",
           small_png(png_chunk(b"iCCP", b"x\0\0" + repeated_deflate(b"\0" * MEBI, 1024))))
    yield ("png-orientation-out-of-range.png", "draft",
           small_png(png_chunk(b"eXIf", tiff([(0x112, 3, 1, 65535)]))))


def jpeg_scan(first, last, code_bits):
    """A scan of one channel over these coefficients."""
    return jpeg_segment(0xda, b"\1\1\0" + bytes([first, last, 0])) + code_bits


def scans_without_end(count, side):
    """A progressive JPEG: every scan says in a few bytes that nothing changes in all its blocks, and
    the decoder goes through them all. A code of one bit means "nothing in the next 16,384 blocks and
    as many more as these 14 bits say"."""
    head = (b"\xff\xd8" + jpeg_segment(0xdb, b"\0" + b"\1" * 64) +
            jpeg_segment(0xc2, struct.pack(">BHHB", 8, side, side, 1) + b"\1\x11\0") +
            jpeg_segment(0xc4, b"\x00\1" + b"\0" * 15 + b"\0") +
            jpeg_segment(0xc4, b"\x10\1" + b"\0" * 15 + b"\xe0"))
    blocks = (side // 8) ** 2
    flat = b"\0" * (blocks // 8 + 1)
    runs = "".join("0" + format(16383, "014b") for _ in range(blocks // 32767 + 1))
    bits = runs + "1" * (-len(runs) % 8)
    empty = bytes(int(bits[i:i + 8], 2) for i in range(0, len(bits), 8)).replace(b"\xff", b"\xff\0")
    return (head + jpeg_scan(0, 0, flat) + jpeg_scan(1, 63, empty) * count + b"\xff\xd9")


def small_jpeg():
    """Grey, 40 by 24: of each of the 15 blocks two bits say that nothing is in it."""
    return (b"\xff\xd8" + jpeg_segment(0xdb, b"\0" + b"\1" * 64) +
            jpeg_segment(0xc0, struct.pack(">BHHB", 8, 24, 40, 1) + b"\1\x11\0") +
            jpeg_segment(0xc4, b"\x00\1" + b"\0" * 15 + b"\0") +
            jpeg_segment(0xc4, b"\x10\1" + b"\0" * 15 + b"\0") +
            jpeg_scan(0, 63, b"\0\0\0\3") + b"\xff\xd9")


def jpeg_files():
    whole = small_jpeg()
    yield "jpeg-header-65500x65500.jpg", "either", (
        b"\xff\xd8" + jpeg_segment(0xc0, struct.pack(">BHHB", 8, 65500, 65500, 1) + b"\1\x11\0") +
        jpeg_segment(0xda, b"\1\1\0\0\x3f\0") + b"\0" * 100 + b"\xff\xd9")
    yield "jpeg-scans-without-end.jpg", "nothing", scans_without_end(100_000, 8000)
    yield "jpeg-5000-comments.jpg", "draft", (
        whole[:2] + jpeg_segment(0xfe, b"x" * 1000) * 5_000 + whole[2:])
    yield "jpeg-comment-cut-off.jpg", "nothing", whole[:2] + b"\xff\xfe\xff\xff" + b"x" * 50
    for name, data in {
            "orientation-0": tiff([(0x112, 3, 1, 0)]),
            "orientation-9": tiff([(0x112, 3, 1, 9)]),
            "orientation-65535": tiff([(0x112, 3, 1, 65535)]),
            "orientation-many-values": tiff([(0x112, 3, 0xffffffff, 6)]),
            "orientation-of-another-type": tiff([(0x112, 4, 1, 0x80000000)]),
            "directory-in-a-circle": tiff([(0x8769, 4, 1, 8)], next_directory=8),
            "directory-outside": b"II*\0" + struct.pack("<I", 0xfffffff0),
            "directory-of-65535": b"II*\0" + struct.pack("<IH", 8, 65535) + b"\xff" * 500,
            "empty": b"",
            "cut-off": b"MM\0*\0",
            "no-byte-order": b"XX*\0\x08\0\0\0"}.items():
        yield f"jpeg-exif-{name}.jpg", "draft", with_exif(whole, data)


def gif_files():
    def screen(width, height):
        return b"GIF89a" + struct.pack("<HHBBB", width, height, 0x80, 0, 0) + b"\0\0\0\xff\xff\xff"

    def frame(x, y, width, height, data):
        return (b"\x2c" + struct.pack("<HHHHB", x, y, width, height, 0) + b"\2" + bytes([len(data)]) +
                data + b"\0")
    dot = frame(0, 0, 1, 1, b"\x44\1")
    delay = b"\x21\xf9\4\4\0\0\0\0"
    yield "gif-screen-65535x65535.gif", "either", screen(65535, 65535) + dot + b";"
    yield "gif-frame-outside-of-its-screen.gif", "either", (
        screen(10, 10) + frame(65000, 65000, 65535, 65535, b"\x44\1") + b";")
    yield "gif-200000-frames.gif", "draft", screen(10, 10) + (delay + dot) * 200_000 + b";"
    yield "gif-million-comments.gif", "draft", (
        screen(10, 10) + b"\x21\xfe" + b"\1x" * 1_000_000 + b"\0" + dot + b";")
    yield "gif-codes-out-of-range.gif", "either", screen(10, 10) + frame(0, 0, 10, 10, b"\xff" * 200) + b";"
    yield "gif-no-frames.gif", "nothing", screen(10, 10) + b";"


def webp_files():
    dot = riff((b"VP8L", b"\x2f\0\0\0\0\x88\x88\x08"))
    canvas = b"\2\0\0\0" + b"\xff\x3f\0" + b"\xff\x3f\0"  # animated, 16384 by 16384
    frame = b"\0" * 6 + b"\0\0\0\0\0\0" + b"\1\0\0" + b"\0"
    yield "webp-animated-canvas-16384x16384.webp", "nothing", riff(
        (b"VP8X", canvas), (b"ANIM", b"\0" * 6), *[(b"ANMF", frame + dot[12:])] * 20)
    yield "webp-100000-frames.webp", "draft", riff(
        (b"VP8X", b"\2\0\0\0\0\0\0\0\0\0"), (b"ANIM", b"\0" * 6),
        *[(b"ANMF", frame + dot[12:])] * 100_000)
    yield "webp-lossless-header-only.webp", "nothing", riff((b"VP8L", b"\x2f\xff\xff\xff\x0f"))
    yield "webp-length-beyond-the-end.webp", "nothing", (
        b"RIFF\xff\xff\xff\xffWEBPVP8 \xff\xff\xff\xff" + b"x" * 50)
    yield "webp-cut-in-the-middle.webp", "nothing", dot[:len(dot) // 2]


def tiff_files():
    end = 8 + 2 + 9 * 12 + 4
    yield "tiff-header-100000x100000.tiff", "nothing", tiff(
        tiff_picture(100_000, 100_000, 1, end, 100), data=b"x" * 100)
    yield "tiff-directories-in-a-circle.tiff", "draft", tiff(
        tiff_picture(10, 10, 1, end, 100), next_directory=8, data=b"x" * 100)
    bomb = repeated_deflate(b"\0" * MEBI, 226)
    yield "tiff-bomb-of-225-megabytes.tiff", "either", tiff(
        tiff_picture(15000, 15000, 8, end, len(bomb)), data=bomb)
    yield "tiff-strips-of-one-row.tiff", "nothing", tiff(
        tiff_picture(1, 0x7fffffff, 1, end, 100, rows=1), data=b"x" * 100)
    yield "tiff-strip-outside.tiff", "either", tiff(tiff_picture(10, 10, 1, 0xfffffff0, 100))
    yield "tiff-directory-of-65535.tiff", "nothing", (
        b"II*\0" + struct.pack("<IH", 8, 65535) + b"\xff" * 5000)
    directories = b"II*\0" + struct.pack("<I", 8)
    for number in range(50_000):
        directories += struct.pack("<HHHIII", 1, 256, 4, 1, 1, 8 + 18 * (number + 1))
    yield "tiff-50000-directories.tiff", "nothing", directories


def drawing_files():
    lots = "".join(f'<!ENTITY a{i + 1} "{f"&a{i};" * 10}">' for i in range(9))
    yield "svg-entities-of-a-billion-named.png", "either", (
        f'<!DOCTYPE svg [<!ENTITY a0 "Total $12.50 ">{lots}]>'.encode() +
        svg('<text x="20" y="70" font-size="40">&a9;</text>'))
    yield "svg-uses-itself.svg", "either", svg('<g id="a"><use xlink:href="#a"/></g>')
    nested = "".join(f'<g id="g{i + 1}">{f"<use xlink:href=%s#g{i}%s/>" % (chr(34), chr(34)) * 10}</g>'
                     for i in range(9))
    yield "svg-uses-a-billion.svg", "either", svg(
        '<g id="g0"><rect width="9" height="9"/></g>' + nested + '<use xlink:href="#g9"/>')
    yield "svg-100000-deep.svg", "either", svg("<g>" * 100_000 + "</g>" * 100_000)
    yield "svg-60000x60000.svg", "either", svg("<rect width='9' height='9'/>",
                                               'width="60000" height="60000"')
    yield "svg-size-beyond-numbers.svg", "either", svg("", 'width="1e39" height="1e39"')
    yield "svg-letters-of-a-million.svg", "either", svg(
        '<text x="0" y="70" font-size="1000000">Total $12.50</text>')
    yield "svg-100000-rectangles.svg", "either", svg('<rect width="400" height="120" opacity="0.1"/>' * 100_000)
    for name, path in {"devices": "/dev/zero", "the-network": "http://127.0.0.1/a.png",
                       "the-requests": "/dev/stdin"}.items():
        yield f"svg-reads-{name}.svg", "either", svg(
            f'<image xlink:href="{path}" width="50" height="50"/>')
    yield "svg-path-of-a-million.svg", "either", svg(
        '<path d="M0 0' + " L400 120 L0 120 L400 0 L0 0" * 50_000 +
        '" stroke="black" stroke-dasharray="0.001" fill-rule="evenodd"/>')
    yield "svgz-bomb-of-700-megabytes.svgz", "either", repeated_gzip(
        svg("").removesuffix(b"</svg>"), b" " * MEBI, 700, b"</svg>")


def other_picture_files():
    yield "ppm-100000x100000.ppm", "nothing", b"P6 100000 100000 255\n" + b"x" * 100
    yield "ppm-endless-header.ppm", "nothing", b"P6 " + b"#" * (8 * MEBI)
    yield "pbm-65000x65000.pbm", "either", b"P4 65000 65000\n"
    yield "xpm-bomb.xpm", "either", (
        b'/* XPM */\nstatic char *a[] = {\n"30000 30000 2 1",\n"a c #000000",\n"b c #ffffff",\n"' +
        b"a" * 30000 + b'",\n};')
    yield "xbm-60000x60000.xbm", "either", (
        b"#define a_width 60000\n#define a_height 60000\nstatic char a_bits[] = {\n0x00 };")
    yield "bmp-header-2-gigapixels.bmp", "nothing", (
        b"BM" + struct.pack("<IIIIiiHHIIiiII", 100, 0, 54, 40, 0x7fffffff, -0x7fffffff, 1, 24, 0, 0,
                            0, 0, 0, 0))
    yield "bmp-runs-of-200-megapixels.bmp", "either", (
        b"BM" + struct.pack("<IIIIiiHHIIiiII", 1078, 0, 1078, 40, 16000, 12500, 1, 8, 1, 0, 0, 0, 256,
                            0) + b"\0" * 1024 + b"\0\1")
    icons = struct.pack("<HHH", 0, 1, 65535)
    for _ in range(65535):
        icons += struct.pack("<BBBBHHII", 0, 0, 0, 0, 1, 32, 0xffffff, 22)
    yield "ico-65535-pictures.ico", "either", icons
    yield "tga-60000x60000.tga", "either", struct.pack("<BBBHHBHHHHBB", 0, 0, 2, 0, 0, 0, 0, 0, 60000,
                                                       60000, 32, 0)
    yield "icns-length-of-nothing.icns", "either", b"icns\0\1\0\0ic07\0\0\0\0" + b"\0" * 200


# --- documents -----------------------------------------------------------------------------------


def pdf_stream_files():
    def packed(data, entries=b""):
        return stream(data, entries + b"/Filter/FlateDecode")
    yield "pdf-blanks-of-a-gigabyte.pdf", "either", one_page(
        packed(repeated_deflate(b" " * MEBI, 1024, TEXT)))
    yield "pdf-operators-of-a-gigabyte.pdf", "either", one_page(
        packed(repeated_deflate(b"q Q " * (MEBI // 4), 1024, TEXT)))
    yield "pdf-letters-of-a-hundred-megabytes.pdf", "either", one_page(
        packed(repeated_deflate(b"BT /F1 9 Tf 9 9 Td (" + b"a" * MEBI + b") Tj ET ", 100)))
    yield "pdf-rectangles-of-a-hundred-megabytes.pdf", "either", one_page(
        packed(repeated_deflate(b"0 0 300 400 re f " * 60_000, 100)))
    yield "pdf-curve-without-end.pdf", "either", one_page(
        packed(repeated_deflate(b"1 2 300 400 5 6 c 300 1 l " * 40_000, 50, b" b*")))
    data = repeated_deflate(b"\0" * MEBI, 1024)
    for _ in range(3):
        data = zlib.compress(data)
    yield "pdf-packed-four-times.pdf", "either", one_page(
        stream(data, b"/Filter[" + b"/FlateDecode" * 4 + b"]"))
    yield "pdf-5000-filters.pdf", "either", one_page(
        stream(b"4142>", b"/Filter[" + b"/ASCIIHexDecode" * 5000 + b"]"))
    yield "pdf-cross-reference-bomb.pdf", "nothing", (
        b"%PDF-1.5\n1 0 obj\n" + packed(repeated_deflate(b"\0" * MEBI, 512),
                                        b"/Type/XRef/Size 90000000/W[1 2 2]/Root 2 0 R") +
        b"\nendobj\nstartxref\n9\n%%EOF\n")
    yield "pdf-object-stream-bomb.pdf", "either", pdf([
        b"<</Type/Catalog/Pages 2 0 R>>", b"<</Type/Pages/Kids[3 0 R]/Count 1>>",
        packed(repeated_deflate(b"1 2 " * (MEBI // 4), 512), b"/Type/ObjStm/N 60000000/First 9")])
    yield "pdf-unicode-map-bomb.pdf", "either", one_page(
        stream(TEXT), packed(repeated_deflate(b"<00> <ff> <0041>\n" * 60_000, 100)),
        resources=b"/Font<</F1<</Type/Font/Subtype/Type1/BaseFont/Helvetica/ToUnicode 6 0 R>>>>")
    yield "pdf-font-of-300-megabytes.pdf", "either", one_page(
        stream(TEXT.replace(b"F1", b"F2")),
        b"<</Type/Font/Subtype/TrueType/BaseFont/X/FontDescriptor 7 0 R>>",
        b"<</Type/FontDescriptor/FontName/X/FontFile2 8 0 R/Flags 4>>",
        packed(repeated_deflate(b"\0\1\0\0" * (MEBI // 4), 300)),
        page=b"/Resources<</Font<</F2 6 0 R>>>>")


def pdf_structure_files():
    yield "pdf-array-100000-deep.pdf", "either", one_page(stream(TEXT), b"[" * 100_000 + b"]" * 100_000)
    yield "pdf-dictionary-100000-deep.pdf", "either", one_page(
        stream(TEXT), b"<</A" * 100_000 + b" 1" + b">>" * 100_000)
    yield "pdf-content-array-100000-deep.pdf", "either", one_page(
        stream(b"[" * 1_000_000 + TEXT))
    yield "pdf-length-of-itself.pdf", "either", one_page(
        b"<</Length 4 0 R>>\nstream\n" + TEXT + b"\nendstream")
    yield "pdf-objects-in-a-circle.pdf", "either", one_page(stream(TEXT), b"7 0 R", b"6 0 R",
                                                          page=b"/Annots 6 0 R/Rotate 7 0 R")
    yield "pdf-previous-table-is-itself.pdf", "either", one_page(stream(TEXT)).replace(
        b"<</Root", b"<</Prev 9/Root")
    pages = [b"<</Type/Catalog/Pages 2 0 R>>",
             b"<</Type/Pages/Kids[" + b"".join(b"%d 0 R " % (i + 4) for i in range(19_900)) +
             b"]/Count 19900/MediaBox[0 0 300 400]/Resources<</Font<</F1 %d 0 R>>>>>>" % 19_904,
             stream(TEXT)]
    pages += [b"<</Type/Page/Parent 2 0 R/Contents 3 0 R>>"] * 19_900 + [FONT]
    yield "pdf-19900-pages.pdf", "either", pdf(pages)
    blank = [b"<</Type/Catalog/Pages 2 0 R>>",
             b"<</Type/Pages/Kids[" + b"".join(b"%d 0 R " % (i + 3) for i in range(19_900)) +
             b"]/Count 19900/MediaBox[0 0 300 400]>>"]
    yield "pdf-19900-empty-pages.pdf", "either", pdf(
        blank + [b"<</Type/Page/Parent 2 0 R>>"] * 19_900)
    yield "pdf-a-page-for-each-of-a-million.pdf", "nothing", pdf(
        blank[:1] + [b"<</Type/Pages/Kids[" + b"3 0 R " * 1_000_000 + b"]/Count 1000000>>",
                     b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 9 9]>>"])
    deep = [b"<</Type/Catalog/Pages 2 0 R>>"]
    deep += [b"<</Type/Pages/Kids[%d 0 R]/Count 1>>" % (i + 3) for i in range(15_000)]
    deep += [b"<</Type/Page/MediaBox[0 0 300 400]/Contents %d 0 R/Resources<</Font<</F1 %d 0 R>>>>>>" %
             (15_003, 15_004), stream(TEXT), FONT]
    yield "pdf-page-tree-15000-deep.pdf", "either", pdf(deep)
    yield "pdf-300000-objects.pdf", "either", one_page(stream(TEXT), *[b"null"] * 300_000)
    yield "pdf-100000-notes.pdf", "either", one_page(
        stream(TEXT), *[b"<</Type/Annot/Subtype/Square/Rect[0 0 300 400]/C[1 0 0]/IC[0 1 0]>>"] * 100_000,
        page=b"/Annots[" + b"".join(b"%d 0 R " % (i + 6) for i in range(100_000)) + b"]")
    for name, box in {"beyond-numbers": b"[0 0 1e38 1e38]", "without-area": b"[0 0 0 0]",
                      "upside-down": b"[300 400 0 0]", "not-a-number": b"[0 0 nan inf]",
                      "far-away": b"[-2147483648 -2147483648 2147483647 2147483647]"}.items():
        yield f"pdf-box-{name}.pdf", "either", one_page(stream(TEXT), box=box)
    yield "pdf-unit-of-a-million.pdf", "either", one_page(stream(b"0 0 9 9 re f"), page=b"/UserUnit 1000000")
    yield "pdf-launches-a-program.pdf", "draft", one_page(
        stream(TEXT), page=b"/AA<</O<</S/Launch/F(/bin/sh)>>>>").replace(
            b"<</Type/Catalog", b"<</Type/Catalog/OpenAction<</S/JavaScript/JS(while(1){})>>")
    yield "pdf-encrypted-by-nobody.pdf", "nothing", pdf(
        [b"<</Type/Catalog/Pages 2 0 R>>", b"<</Type/Pages/Kids[]/Count 0>>"],
        b"/Encrypt<</Filter/Nobody/V 99/R 99/O(x)/U(x)/P -1>>/ID[(x)(x)]")
    yield "pdf-head-only.pdf", "nothing", b"%PDF-1.5\n"
    yield "pdf-blanks-only-200-megabytes.pdf", "nothing", 200 * MEBI


def pdf_drawing_files():
    form = b"/Type/XObject/Subtype/Form/BBox[0 0 300 400]"
    dot = b"0 0 9 9 re f "

    def forms(count, times, extra=b""):
        """Forms that draw the next one several times each."""
        for i in range(count):
            body = b"/X Do " * times if i < count - 1 else dot
            yield stream(body, form + extra + b"/Resources<</XObject<</X %d 0 R>>>>" % (i + 7))
    draw = stream(b"/X Do")
    yield "pdf-form-draws-itself.pdf", "either", one_page(
        draw, stream(b"/X Do " + dot, form + b"/Resources<</XObject<</X 6 0 R>>>>"),
        resources=b"/XObject<</X 6 0 R>>")
    yield "pdf-forms-a-billion.pdf", "either", one_page(
        draw, *forms(10, 10), resources=b"/XObject<</X 6 0 R>>")
    yield "pdf-forms-5000-deep.pdf", "either", one_page(
        draw, *forms(5000, 1), resources=b"/XObject<</X 6 0 R>>")
    yield "pdf-transparent-forms.pdf", "either", one_page(
        draw, *forms(7, 6, b"/Group<</S/Transparency/I true>>"), resources=b"/XObject<</X 6 0 R>>")
    yield "pdf-mask-of-itself.pdf", "either", one_page(
        stream(b"/G gs " + dot),
        b"<</SMask<</S/Luminosity/G 7 0 R>>>>",
        stream(b"/G gs " + dot, form + b"/Group<</S/Transparency>>/Resources<</ExtGState<</G 6 0 R>>>>"),
        resources=b"/ExtGState<</G 6 0 R>>")
    yield "pdf-tiles-of-nothing.pdf", "either", one_page(
        stream(b"/Pattern cs /P scn 0 0 300 400 re f"),
        stream(b"0 0 1 1 re f", b"/PatternType 1/PaintType 1/TilingType 1/BBox[0 0 1 1]"
               b"/XStep 0.0001/YStep 0.0001/Resources<<>>"),
        resources=b"/Pattern<</P 6 0 R>>")
    yield "pdf-tiles-of-themselves.pdf", "either", one_page(
        stream(b"/Pattern cs /P scn 0 0 300 400 re f"),
        stream(b"/Pattern cs /P scn 0 0 99 99 re f",
               b"/PatternType 1/PaintType 1/TilingType 1/BBox[0 0 9 9]/XStep 1/YStep 1"
               b"/Resources<</Pattern<</P 6 0 R>>>>"),
        resources=b"/Pattern<</P 6 0 R>>")
    yield "pdf-letters-of-themselves.pdf", "either", one_page(
        stream(b"BT /F2 20 Tf 9 9 Td (aaaa) Tj ET"),
        b"<</Type/Font/Subtype/Type3/FontBBox[0 0 9 9]/FontMatrix[1 0 0 1 0 0]/CharProcs<</a 7 0 R>>"
        b"/Encoding<</Differences[97/a]>>/FirstChar 97/LastChar 97/Widths[9]"
        b"/Resources<</Font<</F2 6 0 R>>>>>>",
        stream(b"9 0 0 0 9 9 d1 BT /F2 20 Tf (aaaa) Tj ET"),
        resources=b"").replace(b"<</F1 5 0 R>>", b"<</F2 6 0 R>>")
    yield "pdf-letters-of-a-million-points.pdf", "draft", one_page(
        stream(TEXT.replace(b"12 Tf", b"1000000 Tf")))
    yield "pdf-function-of-a-million.pdf", "either", one_page(
        stream(b"/S sh"), stream(b"{" * 100_000 + b"}" * 100_000,
                                 b"/FunctionType 4/Domain[0 1 0 1]/Range[0 1 0 1 0 1]"),
        resources=b"/Shading<</S<</ShadingType 1/ColorSpace/DeviceRGB/Function 6 0 R>>>>")
    yield "pdf-100-patches.pdf", "either", one_page(
        stream(b"/S sh"),
        flate((b"\0" + bytes(range(24)) * 2 + b"\xff\0\0" * 4) * 100,
              b"/ShadingType 7/ColorSpace/DeviceRGB/BitsPerCoordinate 8/BitsPerComponent 8"
              b"/BitsPerFlag 8/Decode[0 300 0 400 0 1 0 1 0 1]"),
        resources=b"/Shading<</S 6 0 R>>")
    picture = b"/Type/XObject/Subtype/Image/ColorSpace/DeviceRGB/BitsPerComponent 8"
    for name, entries, data in [
            ("jpx-junk", b"/Filter/JPXDecode/Width 9/Height 9",
             b"\0\0\0\x0cjP  \r\n\x87\n\xff\x4f\xff\x51\0\x29\0\0" + b"\xff\xff\xff\xf0" * 8),
            ("jbig2-junk", b"/Filter/JBIG2Decode/Width 60000/Height 60000",
             b"\0\0\0\0\x30\0\1\0\0\0\x13" + struct.pack(">II", 60000, 60000) + b"\0" * 11),
            ("fax-20000x20000", b"/Filter/CCITTFaxDecode/DecodeParms<</K -1/Columns 20000/Rows 20000>>"
             b"/Width 20000/Height 20000", b"\x26\xa0" * 100)]:
        bits = picture.replace(b"/DeviceRGB/BitsPerComponent 8", b"/DeviceGray/BitsPerComponent 1")
        yield f"pdf-picture-{name}.pdf", "either", one_page(
            stream(b"300 0 0 400 0 0 cm /X Do"),
            stream(data, (picture if name == "jpx-junk" else bits) + entries),
            resources=b"/XObject<</X 6 0 R>>")
    yield "pdf-60-pictures-on-a-page.pdf", "either", one_page(
        stream(b"".join(b"q 300 0 0 400 0 0 cm /X%d Do Q " % i for i in range(60))),
        *[stream(repeated_deflate(b"\x80" * MEBI, 36),
                 picture + b"/Filter/FlateDecode/Width 4000/Height 3000")] * 60,
        resources=b"/XObject<<" + b"".join(b"/X%d %d 0 R" % (i, i + 6) for i in range(60)) + b">>")


FAMILIES = {
    "png": png_files, "jpeg": jpeg_files, "gif": gif_files, "webp": webp_files, "tiff": tiff_files,
    "drawing": drawing_files, "other_picture": other_picture_files, "pdf_stream": pdf_stream_files,
    "pdf_structure": pdf_structure_files, "pdf_drawing": pdf_drawing_files}


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    manifest = []
    for family in sys.argv[2:] or FAMILIES:
        for name, outcome, content in FAMILIES[family]():
            with open(folder / name, "wb") as file:
                if isinstance(content, int):
                    os.truncate(file.fileno(), content)
                else:
                    file.write(content)
            manifest.append({"name": name, "outcome": outcome})
    (folder / "manifest.json").write_text(json.dumps(manifest, indent=1))


if __name__ == "__main__":
    main()
