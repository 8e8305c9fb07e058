# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The clean and the degraded pictures among the samples: every layout and every kind."""
import cv2
import kinds

CLEAN = {"payment-result": ["1x", "3x"], "e-mail-receipt": ["1x", "2x"], "settings": ["dark", "2x"],
         "invoice": ["1x"], "store-receipt": ["3x", "dark"], "subscription-management": ["2x", "dark"],
         "order-details": ["3x", "jpeg"], "message": ["1x"], "purchase": ["3x", "jpeg"],
         "purchase-history": ["2x"], "service-invoice": ["1x", "jpeg"], "billing-page": ["1x", "dark"],
         "statement": ["jpeg"], "licence": ["2x"], "mixed": ["2x"], "paper-invoice": ["1x"],
         "web-store-receipt": ["1x", "dark"], "web-account": ["1x", "2x"],
         "web-payment-mail": ["2x"], "web-carrier-bill": ["1x"]}
DEGRADED = {"payment-result": ["photographed", "turned"], "e-mail-receipt": ["photographed", "blurred"],
            "settings": ["shrunk"], "invoice": ["rotated", "photographed"],
            "store-receipt": ["rotated", "jpeg-low"], "subscription-management": ["shrunk", "blurred"],
            "order-details": ["photographed", "jpeg-low"], "message": ["blurred"],
            "purchase": ["turned", "jpeg-low"], "purchase-history": ["rotated"],
            "service-invoice": ["photographed", "turned"], "billing-page": ["shrunk"],
            "statement": ["rotated"], "licence": ["blurred", "jpeg-low"], "mixed": ["photographed"],
            "paper-invoice": ["shrunk", "turned"], "web-store-receipt": ["photographed"],
            "web-account": ["shrunk"], "web-payment-mail": ["blurred"],
            "web-carrier-bill": ["jpeg-low"]}
SHOWN = {"1x": "at the size of the screen",
         "2x": "drawn twice as large",
         "3x": "drawn three times as large",
         "dark": "light on dark",
         "jpeg": "a good JPEG",
         "photographed": "tilted, in perspective, on a table in uneven light",
         "blurred": "out of focus",
         "rotated": "turned by a few degrees",
         "shrunk": "reduced by a messenger",
         "jpeg-low": "a poor JPEG",
         "turned": "lying on its side or its head"}


def add(samples):
    for group, plan in (("clean", CLEAN), ("degraded", DEGRADED)):
        for layout, kinds_of_it in plan.items():
            for kind in kinds_of_it:
                page, truth, random = samples.bill(f"{layout} {kind}", layout, dark=kind == "dark")
                picture, quality = kinds.picture(kind, page, random)
                if kind == "blurred":
                    quality = 88  # noise makes a PNG of a blurred picture very large
                options = ([cv2.IMWRITE_JPEG_QUALITY, quality] if quality else
                           [cv2.IMWRITE_PNG_COMPRESSION, 9])
                ending = "jpg" if quality else "png"
                data = cv2.imencode(f".{ending}", picture, options)[1].tobytes()
                samples.add(f"{group}/{layout}-{kind}.{ending}", data,
                            f"{layout.replace('-', ' ')}, {SHOWN[kind]}",
                            truth | {"kind": kind, "group": group})
