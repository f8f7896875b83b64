"""Writes a source with all its changes in it, each behind a question."""

import re

PLACE = re.compile(r"@(\d+)@")


def weave(data, edits, first, header, form):
    """The changeable source, and where in it which mutants stand as (start, end, mutants)."""
    def numbered(text):
        return PLACE.sub(lambda place: form.format(first + int(place.group(1))), text)

    openings, closings, replaced = {}, {}, {}
    for rank, edit in enumerate(edits):
        if edit.replacement is not None:
            replaced[edit.start] = edit
        else:
            openings.setdefault(edit.start, []).append((-edit.end, -rank, edit))
            closings.setdefault(edit.end, []).append((-edit.start, rank, edit))

    out = [header.encode()]
    length = len(out[0])
    started, spans = {}, []

    def put(piece):
        nonlocal length
        out.append(piece)
        length += len(piece)

    position = 0
    while position <= len(data):
        for _, rank, edit in sorted(closings.get(position, ()), key=lambda item: item[:2]):
            put(numbered(edit.suffix).encode())
            spans.append((started[id(edit)], length, edit.mutants))
        for _, rank, edit in sorted(openings.get(position, ()), key=lambda item: item[:2]):
            started[id(edit)] = length
            put(numbered(edit.prefix).encode())
        edit = replaced.get(position)
        if edit:
            start = length
            put(numbered(edit.replacement).encode())
            spans.append((start, length, edit.mutants))
            position = edit.end if edit.end > position else position + 1
        else:
            put(data[position: position + 1])
            position += 1
    return b"".join(out), spans
