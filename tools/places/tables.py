"""The tables of the gazetteer; numbers are little-endian."""
import struct

MAGIC = b"SVPLACE3"


def number(value, size):
    return value.to_bytes(size, "little")


def position(latitude, longitude):
    """Returns a position in 1/10000 degree, 3 bytes each."""
    return b"".join(round(degrees * 10000).to_bytes(3, "little", signed=True) for degrees in (latitude, longitude))


def population(inhabitants):
    """Returns a population for comparison, in 2 bytes: its leading 11 bits and their shift count."""
    shift = max(inhabitants.bit_length() - 11, 0)
    return number(shift << 11 | inhabitants >> shift, 2)


class Tables:
    def __init__(self):
        self.texts, self.offsets, self.tables = bytearray(), {}, []

    def text(self, name):
        """Returns the offset of a text, in 3 bytes."""
        if name not in self.offsets:
            self.offsets[name] = len(self.texts)
            self.texts.extend(name.encode() + b"\0")
        return number(self.offsets[name], 3)

    def add(self, records):
        self.tables.append(list(records))

    def finish(self):
        counts = [len(table) for table in self.tables] + [len(self.texts)]
        return (MAGIC + struct.pack(f"<{len(counts)}I", *counts) +
                b"".join(record for table in self.tables for record in table) + bytes(self.texts))
