"""Takes the picture: part, table, shadow, defects, and what lens and sensor add."""

from surfaces import Light, Table


def _scene(random, part_type, size):
    width, height = size
    unit = min(size)
    light = Light(random)
    table, part = Table(random), part_type(random, light)
    edge = 0.8 / unit
    rows, covers = [], []
    for row in range(height):
        y = (row + 0.5 - height / 2) / unit
        values, cover_row = [], []
        for column in range(width):
            x = (column + 0.5 - width / 2) / unit
            cover = part.cover(x, y, edge)
            value = 0.0
            if cover < 1.0:
                value = (1.0 - cover) * table.at(x, y) * (1.0 - 0.6 * part.shadow(x, y))
            if cover > 0.0:
                value += cover * part.at(x, y)
            values.append(value * light.at(x, y))
            cover_row.append(cover)
        rows.append(values)
        covers.append(cover_row)
    return part, rows, covers


def _apply(defect, rows, covers, size):
    """Changes the part where the defect lies; the table under it stays."""
    width, height = size
    unit = min(size)
    left, top, right, bottom = defect.box
    columns = range(max(0, int(left * unit + width / 2)), min(width, int(right * unit + width / 2) + 1))
    for row in range(max(0, int(top * unit + height / 2)), min(height, int(bottom * unit + height / 2) + 1)):
        y = (row + 0.5 - height / 2) / unit
        values, cover = rows[row], covers[row]
        for column in columns:
            if cover[column] > 0.0:
                x = (column + 0.5 - width / 2) / unit
                factor, addend = defect.change(x, y, 1.0 / unit)
                values[column] += cover[column] * (values[column] * (factor - 1.0) + addend)


def _blurred(values):
    """One row or column seen through the lens: a quarter of each neighbour."""
    padded = [values[0], *values, values[-1]]
    return [0.24 * padded[i] + 0.52 * padded[i + 1] + 0.24 * padded[i + 2] for i in range(len(values))]


def photograph(random, part_type, spoil, size):
    """Grey values of a picture of `size` pixels, rows from the top; not yet whole, and some beyond 0 to 255."""
    part, rows, covers = _scene(random, part_type, size)
    for defect in spoil(random, part) if spoil else []:
        _apply(defect, rows, covers, size)
    rows = [_blurred(row) for row in rows]
    rows = [list(row) for row in zip(*[_blurred(column) for column in zip(*rows)])]
    gauss = random.gauss
    return [[255.0 * value + gauss(0.0, 1.0 + 1.3 * max(0.0, value)) for value in row] for row in rows]
