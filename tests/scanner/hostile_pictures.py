# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Pictures and drawings for hostile_files.py: each function yields name, outcome and content."""
import struct

from hostile_formats import (MEBI, jpeg_segment, png, png_chunk, png_rows, repeated_deflate,
                             repeated_gzip, riff, small_png, svg, tiff, tiff_picture, with_exif)


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
