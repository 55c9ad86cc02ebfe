"""The headers that benchmarks read."""

import re
from pathlib import Path


def headers_in(root):
    return [path for path in sorted(root.rglob("*.h")) if path.is_file()]


def documented_headers(root):
    """The headers with documentation comments."""
    return [path for path in headers_in(root) if b"/*!" in path.read_bytes()]


def all_headers(root):
    """An evenly spaced selection of about 1,500 headers."""
    headers = headers_in(root)
    return headers[::max(1, len(headers) // 1500)]


def packaged_headers(directory, count):
    """Copies of headers of installed packages, evenly spaced, in which the comments of other tools, "/**", are ours."""
    root = Path("/usr/include")
    headers = headers_in(root)
    copies = []
    for index in range(min(count, len(headers))):
        header = headers[index * len(headers) // count if len(headers) > count else index]
        copy = directory / header.relative_to(root)
        copy.parent.mkdir(parents=True, exist_ok=True)
        copy.write_bytes(re.sub(rb"/\*\*(?=[ \t]*\r?\n)", b"/*!", header.read_bytes()))
        copies.append(copy)
    return copies


def generated_header(directory):
    """One header of about 9 MB with 10,000 documented declarations."""
    filler = " * What it does is told in lines like this one, which go on for a while so that the page has a text.\n" * 7
    with (directory / "generated.h").open("w") as header:
        for index in range(10000):
            header.write(f"/*!\n * Sets value {index} of the device. There is more to it.\n *\n{filler}"
                         f" * \\param{{device}} the device\n * \\rv 0, or a negative error.\n */\n"
                         f"int device_set_{index}(struct device *device, unsigned value{index}, const char *name);\n\n")
    return [directory / "generated.h"]
