# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The parts that hostile files are put together from, by their formats."""
import struct
import zlib

MEBI = 1 << 20


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
