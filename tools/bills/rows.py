# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The order in which a person reads the pieces of text on a page: by rows, left to right."""
import collections

Piece = collections.namedtuple("Piece", "text left right baseline size")

# Pieces that share this much of the lower one's height are on one row; what lies between the two
# figures is not clear to a person either and must not be drawn.
ONE_ROW, TWO_ROWS = 0.55, 0.3


class Unclear(Exception):
    """Whether two pieces are on one row, or where one ends, is a matter of opinion."""


def _shared_height(one, other):
    top = max(piece.baseline - 0.8 * piece.size for piece in (one, other))
    bottom = min(piece.baseline + 0.1 * piece.size for piece in (one, other))
    return (bottom - top) / (0.9 * min(one.size, other.size))


def in_reading_order(pieces):
    """The texts of the pieces as rows, from the top down and from left to right."""
    rows = []
    for piece in sorted(pieces, key=lambda piece: piece.baseline - 0.4 * piece.size):
        shared = [[_shared_height(piece, other) for other in row] for row in rows]
        joined = [i for i, values in enumerate(shared) if max(values) > TWO_ROWS]
        if len(joined) > 1 or joined and min(shared[joined[0]]) < ONE_ROW:
            raise Unclear(piece.text)
        if joined:
            rows[joined[0]].append(piece)
        else:
            rows.append([piece])
    for row in rows:
        row.sort(key=lambda piece: piece.left)
        for left, right in zip(row, row[1:]):
            if right.left - left.right < max(left.size, right.size):
                raise Unclear(f"{left.text} | {right.text}")
    return [[piece.text for piece in row] for row in rows]
