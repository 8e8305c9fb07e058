# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The documents among the samples."""
import html
import os
import re
import subprocess
import tempfile

import cv2
import numpy
import pdf_files
from pdf_files import Blank, Scan

BLANKS = b"BT 3 Tr /F 12 Tf 72 700 Td (   ) Tj 0 -20 Td (\\t \\n ) Tj ET"
BROWSER_ROWS = [["月度账单"], ["服务", "星图云盘 2TB"], ["付款日期", "2025年3月8日"], ["金额", "¥45.00"]]


def truth_of(*truths):
    """What a document says whose pages say this."""
    fields = {key: [text for told in truths for text in told["fields"][key]]
              for key in ("amounts", "dates", "dates_printed")}
    return truths[0] | {"kind": "document", "group": "pdf", "pages": len(truths),
                        "rows": [row for told in truths for row in told["rows"]],
                        "fields": fields | {"name": truths[0]["fields"]["name"]}}


def qpdf(data, *options):
    with tempfile.TemporaryDirectory() as folder:
        paths = [os.path.join(folder, name) for name in ("in.pdf", "out.pdf")]
        with open(paths[0], "wb") as file:
            file.write(data)
        subprocess.run(["qpdf", "--static-id", *options, *paths], check=True)
        with open(paths[1], "rb") as file:
            return file.read()


def printed_by_browser():
    """A small page as a browser prints it: some letters of its text layer are Kangxi radicals."""
    lines = "".join("<tr>" + "".join(f"<td>{html.escape(text)}</td>" for text in row) + "</tr>"
                    for row in BROWSER_ROWS[1:])
    page = (f"<html lang=zh-CN><title>Bill</title><body style='font-family:Noto Sans CJK SC'>"
            f"<h1>{BROWSER_ROWS[0][0]}</h1><table width=70%>{lines}</table>")
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "bill.html"), "w", encoding="utf-8") as file:
            file.write(page)
        subprocess.run(["chromium", "--headless", "--no-sandbox", "--disable-gpu",
                        "--no-pdf-header-footer",
                        f"--user-data-dir={folder}/profile", "--print-to-pdf=bill.pdf", "bill.html"],
                       check=True, cwd=folder, stderr=subprocess.DEVNULL)
        with open(os.path.join(folder, "bill.pdf"), "rb") as file:
            return pdf_files.dated(file.read())


def grey_scan(page, random, **options):
    """The page as a scanner sees it at 150 dots an inch."""
    picture = page.picture(1240 / page.width if page.width > 500 else 2)
    grey = cv2.cvtColor(picture, cv2.COLOR_BGR2GRAY)
    noise = numpy.random.RandomState(random.getrandbits(32)).normal(0, 1.5, grey.shape)
    return Scan(numpy.clip(grey + noise, 0, 255).astype(numpy.uint8), **options)


def add(samples):
    def bill(layout, seed="pdf"):
        page, truth, chance = samples.bill(f"{seed} {layout}", layout)
        if page.width > 500:
            page.height = page.width * 1.414
        return page, truth, chance

    def keep(name, data, purpose, *truths):
        samples.add(f"pdf/{name}.pdf", data, purpose, truth_of(*truths) if truths else None)

    invoice, invoice_truth, random = bill("service-invoice")
    paper, paper_truth, _ = bill("paper-invoice")
    statement, statement_truth, _ = bill("statement")
    store, store_truth, _ = bill("store-receipt")
    text = pdf_files.with_text([invoice])
    keep("text-layer-english", text, "one page with text", invoice_truth)
    keep("text-layer-chinese", pdf_files.with_text([paper]), "Chinese text", paper_truth)
    keep("text-layer-phone", pdf_files.with_text([store]), "a page as narrow as a phone", store_truth)
    keep("text-layer-two-pages", pdf_files.with_text([invoice, statement]), "two pages with text",
         invoice_truth, statement_truth)
    browser = {"language": "zh", "layout": "browser", "rows": BROWSER_ROWS, "fields": {
        "amounts": ["¥45.00"], "dates": ["2025-03-08"], "dates_printed": ["2025年3月8日"],
        "name": "星图云盘 2TB"}}
    keep("printed-by-a-browser", printed_by_browser(), "a browser's print, in whose text some "
         "characters are radicals that only look like them", browser)
    keep("page-rotated-by-90", qpdf(text, "--rotate=+90"), "text on a page turned for showing",
         invoice_truth)

    scan = grey_scan(invoice, random)
    keep("scanned", pdf_files.scanned([scan]), "one scanned page, no text layer", invoice_truth)
    keep("scanned-rotated-by-270", pdf_files.scanned([grey_scan(paper, random, rotate=270)]),
         "a scan turned for showing", paper_truth)
    keep("scanned-on-its-side", pdf_files.scanned([on_its_side(statement)]),
         "a scan that lies on its side and is turned upright for showing", statement_truth)
    keep("white-space-text-layer", pdf_files.scanned([grey_scan(invoice, random, text=BLANKS)]),
         "a scan whose text layer holds blanks only", invoice_truth)
    width, height = scan.size
    keep("crop-box-smaller-than-media-box",
         pdf_files.scanned([grey_scan(invoice, random, crop=(0, height * 0.8, width, height))]),
         "a scan whose crop box shows the upper fifth only; the truth is the whole page's",
         invoice_truth)
    keep("crop-box-on-text", cropped(text), "a page with text whose crop box shows the upper fifth "
         "only; the truth is the whole page's", invoice_truth)
    ten = [bill(name, f"ten {i}") for i, name in enumerate(["invoice", "paper-invoice"] * 5)]
    keep("scanned-ten-pages", pdf_files.scanned([
        grey_scan(page, chance, quality=45) for page, _, chance in ten]), "ten scanned pages",
         *[told for _, told, _ in ten])
    keep("blank-page-then-scan", pdf_files.scanned([Blank(), scan]), "the first page is empty",
         invoice_truth)
    keep("text-page-then-scan", joined(text, pdf_files.scanned([grey_scan(paper, random)])),
         "one page with text and one without", invoice_truth, paper_truth)

    keep("blank-page", pdf_files.scanned([Blank()]), "one page with nothing on it")
    keep("blank-page-with-white-space", pdf_files.scanned([Blank(text=BLANKS)]), "blanks only")
    keep("no-pages", pdf_files.scanned([]), "a document without pages")
    keep("owner-password-only", encrypted(text, "", "owner"), "encrypted, opens without a password",
         invoice_truth)
    keep("password-needed", encrypted(text, "needed", "owner"), "opens with the password `needed` only")
    scan_file = pdf_files.scanned([scan])
    keep("cut-in-the-middle", scan_file[:len(scan_file) // 2], "the second half is missing")
    keep("cut-text-layer", text[:len(text) // 2], "the second half is missing, page tree and all")
    keep("wrong-cross-reference", re.sub(rb"startxref\n\d+", b"startxref\n7", scan_file),
         "the place of the cross-reference table is wrong; its objects are whole", invoice_truth)
    keep("picture-named-as-document", cv2.imencode(".png", store.picture(1))[1].tobytes(),
         "a PNG picture that is called a PDF document")


def on_its_side(page):
    picture = cv2.cvtColor(page.picture(1240 / page.width), cv2.COLOR_BGR2GRAY)
    return Scan(numpy.ascontiguousarray(numpy.rot90(picture)), rotate=90)


def encrypted(data, user, owner):
    """With AES; the same bytes each time, which is good for nothing but samples."""
    return qpdf(data, "--static-aes-iv", "--encrypt", user, owner, "128", "--use-aes=y", "--")


def cropped(data):
    """Only the upper fifth of the first page is to be shown."""
    plain = qpdf(data, "--qdf", "--object-streams=disable")
    box = re.search(rb"/MediaBox \[\s*0\s+0\s+(\S+)\s+(\S+)\s*\]", plain)
    crop = b"/CropBox [ 0 %.2f %s %s ]\n  " % (float(box[2]) * 0.8, box[1], box[2])
    mended = subprocess.run(["fix-qdf"], input=plain[:box.start()] + crop + plain[box.start():],
                            stdout=subprocess.PIPE, check=True).stdout
    return qpdf(mended)


def joined(first, second):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "second.pdf")
        with open(path, "wb") as file:
            file.write(second)
        return qpdf(first, "--pages", ".", path, "--")
