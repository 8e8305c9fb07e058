# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""How a page becomes a picture: a screenshot, or what is left of one after a camera, a messenger
or a scanner has had it."""
import math

import cv2
import numpy

CLEAN = ["1x", "2x", "3x", "dark", "jpeg"]
DEGRADED = ["photographed", "blurred", "rotated", "shrunk", "jpeg-low", "turned"]
DOCUMENTS = ["pdf-text", "pdf-scanned"]

# Nothing degraded has letters whose x-height, taken as half the font's size, is below this many
# pixels: a person can still read all of it.
LEAST_X_HEIGHT = 8


def _readable_scale(page, random, shrinkage):
    least = 2 * LEAST_X_HEIGHT / page.smallest_size() / shrinkage
    return max(least, random.choice([1, 1.5, 2]) if page.width > 500 else random.choice([1.5, 2, 3]))


def group(kind):
    return "clean" if kind in CLEAN or kind == "pdf-text" else "degraded"


def _noise(picture, chance, strength):
    noise = chance.normal(0, strength, picture.shape[:2] + (1,)) + chance.normal(
        0, strength / 2, picture.shape)
    return numpy.clip(picture + noise, 0, 255).astype(numpy.uint8)


def _clouds(chance, height, width, low, high):
    """Values that change slowly from place to place."""
    coarse = chance.uniform(low, high, (4, 4)).astype(numpy.float32)
    return cv2.resize(coarse, (width, height), interpolation=cv2.INTER_CUBIC)


def _table(chance, height, width):
    """Something with a grain for the page to lie on."""
    color = chance.uniform(40, 190) * numpy.array([chance.uniform(0.5, 1), 0.9, 1.0])
    grain = cv2.resize(chance.normal(0, 12, (height // 3 + 1, 12)).astype(numpy.float32),
                       (width, height), interpolation=cv2.INTER_LINEAR)
    return numpy.clip(color + (grain + _clouds(chance, height, width, -15, 15))[..., None], 0, 255)


def photographed(page, random, chance):
    picture = page.picture(_readable_scale(page, random, 0.85))
    height, width = picture.shape[:2]
    angle = math.radians(random.uniform(-8, 8))
    turn = numpy.array([[math.cos(angle), -math.sin(angle)], [math.sin(angle), math.cos(angle)]])
    corners = numpy.array([[0, 0], [width, 0], [width, height], [0, height]], float)
    moved = (corners - [width / 2, height / 2]) @ turn.T
    moved += chance.uniform(-0.035, 0.035, (4, 2)) * min(width, height)
    margin = chance.uniform(0.03, 0.1, 2) * width
    moved += margin - moved.min(axis=0)
    out_width, out_height = (moved.max(axis=0) + margin).astype(int)
    matrix = cv2.getPerspectiveTransform(corners.astype(numpy.float32), moved.astype(numpy.float32))
    size = (int(out_width), int(out_height))
    warped = cv2.warpPerspective(picture, matrix, size, flags=cv2.INTER_CUBIC)
    inside = cv2.warpPerspective(numpy.full((height, width), 255, numpy.uint8), matrix, size,
                                 flags=cv2.INTER_LINEAR)[..., None] / 255.0
    photo = warped * inside + _table(chance, *size[::-1]) * (1 - inside)
    light = _clouds(chance, *size[::-1], 0.85 if page.look.dark else 0.65, 1.02)[..., None]
    photo = photo * light * [random.uniform(0.8, 0.93), random.uniform(0.92, 0.98), 1.0]
    photo = cv2.GaussianBlur(photo, (0, 0), random.uniform(0.5, 0.9))
    return _noise(photo, chance, random.uniform(2, 6)), random.randint(80, 92)


def blurred(page, random, chance):
    picture = page.picture(_readable_scale(page, random, 0.9))
    picture = cv2.GaussianBlur(picture, (0, 0), random.uniform(0.9, 1.4))
    if random.random() < 0.4:
        length = random.choice([3, 5])
        kernel = numpy.ones((1, length)) / length
        picture = cv2.filter2D(picture, -1, kernel if random.random() < 0.5 else kernel.T)
    return _noise(picture, chance, random.uniform(0, 3)), random.choice([None, 85])


def rotated(page, random, chance):
    picture = page.picture(_readable_scale(page, random, 1))
    height, width = picture.shape[:2]
    angle = random.choice([-1, 1]) * random.uniform(1, 4)
    matrix = cv2.getRotationMatrix2D((width / 2, height / 2), angle, 1)
    cosine, sine = abs(matrix[0, 0]), abs(matrix[0, 1])
    size = int(height * sine + width * cosine), int(height * cosine + width * sine)
    matrix[:, 2] += (size[0] - width) / 2, (size[1] - height) / 2
    edge = [int(255 * part) for part in reversed(page.look.ground)]
    if random.random() < 0.5:
        edge = [random.randint(20, 250)] * 3
    turned_page = cv2.warpAffine(picture, matrix, size, flags=cv2.INTER_LINEAR, borderValue=edge)
    return turned_page, random.choice([None, 90])


def shrunk(page, random, chance):
    factor = random.uniform(0.6, 0.75)
    picture = page.picture(_readable_scale(page, random, factor))
    way = random.choice([cv2.INTER_AREA, cv2.INTER_LINEAR])
    return cv2.resize(picture, None, fx=factor, fy=factor, interpolation=way), random.choice([None, 85])


def jpeg_low(page, random, chance):
    return page.picture(_readable_scale(page, random, 1)), random.randint(30, 50)


def turned(page, random, chance, quarters=None):
    picture = page.picture(_readable_scale(page, random, 1))
    quarters = quarters or random.choice([1, 2, 3])
    return numpy.ascontiguousarray(numpy.rot90(picture, -quarters)), random.choice([None, 90])


def scanned(page, random, chance):
    """What an office scanner makes of the printed page: a little askew, grey or in colours."""
    picture = page.picture(_readable_scale(page, random, 1))
    height, width = picture.shape[:2]
    matrix = cv2.getRotationMatrix2D((width / 2, height / 2), random.uniform(-0.8, 0.8), 1)
    edge = [int(255 * part) for part in reversed(page.look.ground)]
    picture = cv2.warpAffine(picture, matrix, (width, height), flags=cv2.INTER_LINEAR, borderValue=edge)
    if random.random() < 0.6:
        picture = cv2.cvtColor(picture, cv2.COLOR_BGR2GRAY)[..., None]
    return _noise(picture, chance, random.uniform(0.5, 3)).squeeze()


def screenshot(kind, page, random):
    phone = page.width < 500
    scale = {"1x": 1, "2x": 2, "3x": 3 if phone else 2}.get(kind) or (
        random.choice([2, 3]) if phone else random.choice([1, 1.5, 2]))
    return page.picture(scale), random.randint(85, 95) if kind == "jpeg" else None


def picture(kind, page, random):
    """The picture and, where it is to be a JPEG file, the quality."""
    if kind in CLEAN:
        return screenshot(kind, page, random)
    way = {"photographed": photographed, "blurred": blurred, "rotated": rotated, "shrunk": shrunk,
           "jpeg-low": jpeg_low, "turned": turned}[kind]
    return way(page, random, numpy.random.RandomState(random.getrandbits(32)))
