# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""PDF files for hostile_files.py: each function yields name, outcome and content, or the size of one
that is all zeros."""
import struct
import zlib

from hostile_formats import FONT, MEBI, TEXT, flate, one_page, pdf, repeated_deflate, stream


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
