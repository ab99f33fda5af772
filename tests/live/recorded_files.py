"""Reads the files of a recording as they stand on disk."""

from itertools import islice


class Wrong(Exception):
    pass


class Cannot(Exception):
    pass


def demand(there, expected, what):
    if there != expected:
        raise Wrong(f"{what}: {there!r} instead of {expected!r}")


class Lines:
    """The lines of a file, one piece behind the other: a recording may be larger than memory."""

    END = "\r\n"

    def __init__(self, path):
        self.path = path
        self.file = open(path, newline=self.END, encoding="cp1252")

    def take(self, count):
        lines = list(islice(self.file, count))
        if lines and not lines[-1].endswith(self.END):
            raise Wrong(f"{self.path} ends within a line")
        return [line[: -len(self.END)] for line in lines]

    def left(self):
        return sum(1 for _ in self.file)


def lines_of(path):
    lines = Lines(path)
    return lines.take(None)


def first_fields(path, separator):
    return Lines(path).take(1)[0].split(separator)


def cells_of(path):
    """The cells of a sheet by row and column, from 0."""
    try:
        import xlrd
    except ImportError as missing:
        raise Cannot(f"{missing}: install python3-xlrd") from missing
    make = xlrd.sheet.Sheet.__init__

    def with_all_rows(self, *arguments, **named):
        # The reader stops at the 16384 rows that the format has by its book; the program goes on.
        make(self, *arguments, **named)
        self.utter_max_rows = 65536

    content = path.read_bytes()
    demand(content[:8].hex(" "), "09 00 04 00 02 00 0a 00", f"head of {path}")
    # The reader knows the type of a sheet by its book, 16, alone.
    content = content[:6] + b"\x10\0" + content[8:]
    xlrd.sheet.Sheet.__init__ = with_all_rows
    try:
        with open("/dev/null", "w", encoding="ascii") as quiet:
            book = xlrd.open_workbook(
                file_contents=content, logfile=quiet, ragged_rows=True)
    finally:
        xlrd.sheet.Sheet.__init__ = make
    demand(book.biff_version, 20, f"format of {path}")
    sheet = book.sheet_by_index(0)
    return {(row, column): sheet.cell_value(row, column) for row in range(sheet.nrows)
            for column in range(sheet.row_len(row)) if sheet.cell_type(row, column) != 0}
