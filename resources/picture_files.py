"""Icon and bitmap files from a raster.Canvas, byte by byte."""

import struct
import zlib


def png(canvas):
    rows = b"".join(
        b"\0" + b"".join(bytes(canvas.rgba(x, y)) for x in range(canvas.width))
        for y in range(canvas.height))

    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data
                + struct.pack(">I", zlib.crc32(kind + data)))

    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", canvas.width, canvas.height, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 9))
            + chunk(b"IEND", b""))


def _and_mask(canvas, least_alpha):
    """One bit a pixel, set if the pixel is transparent. The bottom row comes first;
    each row is padded to 32 bits."""
    out = bytearray()
    for y in reversed(range(canvas.height)):
        row = bytearray((canvas.width + 31) // 32 * 4)
        for x in range(canvas.width):
            if canvas.rgba(x, y)[3] < least_alpha:
                row[x // 8] |= 0x80 >> (x % 8)
        out += row
    return bytes(out)


def _dib_header(width, height, bits, image_size, colors):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, image_size, 0, 0, colors, 0)


def icon_image_32(canvas):
    """An image of 32 bits a pixel with alpha. The height in its header includes the
    mask."""
    data = bytearray()
    for y in reversed(range(canvas.height)):
        for x in range(canvas.width):
            red, green, blue, alpha = canvas.rgba(x, y)
            data += bytes((blue, green, red, alpha))
    mask = _and_mask(canvas, 1)
    return (_dib_header(canvas.width, canvas.height * 2, 32, len(data) + len(mask), 0)
            + bytes(data) + mask)


def icon_image_8(canvas):
    """An image of 256 colours, transparent only by its mask. A masked pixel has to be
    black, or Windows would mix its colour into the background: colour 0 is black."""
    palette = {(0, 0, 0): 0}
    data = bytearray()
    for y in reversed(range(canvas.height)):
        for x in range(canvas.width):
            red, green, blue, alpha = canvas.rgba(x, y)
            pixel = (red, green, blue) if alpha >= 128 else (0, 0, 0)
            data.append(palette.setdefault(pixel, len(palette)))
    colors = b"".join(bytes((blue, green, red, 0)) for red, green, blue in palette)
    mask = _and_mask(canvas, 128)
    return (_dib_header(canvas.width, canvas.height * 2, 8, len(data) + len(mask), 256)
            + colors.ljust(1024, b"\0") + bytes(data) + mask)


def ico(images):
    """An icon file. `images` has rows of width, height, bits a pixel, bytes."""
    directory = struct.pack("<HHH", 0, 1, len(images))
    offset = len(directory) + 16 * len(images)
    for width, height, bits, data in images:
        # 256 does not fit into the byte: it is written as 0.
        directory += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, bits,
                                 len(data), offset)
        offset += len(data)
    return directory + b"".join(image[3] for image in images)


def _median_cut(counts, wanted):
    """Reduces the colours of `counts` to at most `wanted`. Maps each old colour to the
    index of its new one and to that colour."""
    boxes = [sorted(counts)]

    def spread(box):
        return max(max(c[i] for c in box) - min(c[i] for c in box) for i in range(3))

    spreads = [spread(boxes[0])]
    while len(boxes) < wanted and max(spreads) > 0:
        at = spreads.index(max(spreads))
        box = boxes[at]
        axis = max(range(3), key=lambda i: max(c[i] for c in box) - min(c[i] for c in box))
        box.sort(key=lambda c: (c[axis], c))
        middle = len(box) // 2
        boxes[at:at + 1] = [box[:middle], box[middle:]]
        spreads[at:at + 1] = [spread(boxes[at]), spread(boxes[at + 1])]
    palette = {}
    for index, box in enumerate(boxes):
        weight = sum(counts[c] for c in box)
        mean = tuple((sum(c[i] * counts[c] for c in box) + weight // 2) // weight
                     for i in range(3))
        for entry in box:
            palette[entry] = (index, mean)
    return palette


def bmp_8(canvas):
    """An opaque bitmap file with a palette of 256 colours, made for this picture."""
    pixels = [canvas.rgba(x, y)[:3] for y in range(canvas.height) for x in range(canvas.width)]
    counts = {}
    for pixel in pixels:
        counts[pixel] = counts.get(pixel, 0) + 1
    palette = _median_cut(counts, 256)
    colors = bytearray(1024)
    for index, (red, green, blue) in palette.values():
        colors[4 * index:4 * index + 3] = bytes((blue, green, red))
    stride = (canvas.width + 3) // 4 * 4
    data = bytearray()
    for y in reversed(range(canvas.height)):
        row = pixels[y * canvas.width:(y + 1) * canvas.width]
        data += bytes(palette[pixel][0] for pixel in row).ljust(stride, b"\0")
    offset = 14 + 40 + len(colors)
    return (struct.pack("<2sIHHI", b"BM", offset + len(data), 0, 0, offset)
            + _dib_header(canvas.width, canvas.height, 8, len(data), 256)
            + bytes(colors) + bytes(data))
