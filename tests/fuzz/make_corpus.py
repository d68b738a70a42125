#!/usr/bin/env python3
"""Writes the corpora of the fuzz targets: one file for each case that matters.

    tests/fuzz/make_corpus.py [FOLDER]

Files that are not written here, such as inputs that a fuzz target once broke
on, are left alone.
"""
import pathlib
import struct
import sys

MARKER = b"\r\n<START ZOL>\r\n"
USER = b'"USERDEF"\r\n'
POINTER = b'"DIRPOINT"\r\n'
LOOK = b'1,"Tahoma",8.25,-1,0\r\n'
SEPARATOR = b'"","","","","",\r\n'
ITEMS = [
    b'"Editor","C:\\tools\\edit.exe","/a, /b","C:\\tools","",0\r\n',
    SEPARATOR,
    b'"Web","http://host/<x>","","","C:\\icons.dll",3\r\n',
    b'"\xe4\x80\x00","C:\\"," "," x ","",-1\r\n',
]
FOLDER = b'"C:\\","*.*",1,0,0\r\n'
PICTURE = b"BM\x00\x01<\r\n<\r<START\r\n x<START ZOL> \r\n\xff<"


def menu(items=ITEMS, picture=PICTURE, type_line=USER, look=LOOK):
    return picture + MARKER + type_line + look + b"".join(items)


def loads():
    whole = menu()
    yield "empty", b""
    yield "user_defined", whole
    yield "user_defined_without_items", menu([])
    yield "directory_pointer", menu([FOLDER], type_line=POINTER)
    yield "previous_version", LOOK + b"".join(ITEMS)
    yield "without_picture", menu(picture=b"")
    yield "unknown_type", menu(type_line=b'"OTHER"\r\n')
    yield "bare_fields", MARKER + b" USERDEF \r\n 01 , T , 8.250 , x , \r\na, b ,c,d,,007\r\n"
    yield "numbers", menu([b"1e3,+5,.5,-0,1e999,1e-999\r\n", b"nan,inf,0x1,5.,1e16,0.00001\r\n"])
    yield "lone_line_ends", b"a\rb\n<START ZOL>\r<START ZOL>\rUSERDEF\n1,T\r8,0\n0\na\rb,c\nd,e,6"
    yield "marker_inside_line", b"x<START ZOL>\r\n" + whole
    yield "marker_twice", menu(picture=b"x\r\n<START ZOL>\r\n")
    yield "marker_at_end", b"x\r\n<START ZOL>"
    yield "cut_in_type_line", whole[: whole.index(USER) + 4]
    yield "cut_in_appearance", whole[: whole.index(LOOK) + 9]
    yield "cut_in_item", whole[:-20]
    yield "cut_after_last_comma", whole[:-4]
    yield "blank_last_line", whole + b"\r\n"
    yield "spaces_at_end", whole + b"   "
    yield "too_few_fields", menu([b"a,b\r\nc,d,e,6\r\n", b"1\r\n2\r\n"])
    yield "too_many_fields", menu([b"1,2,3,4,5,6,7,8\r\n"])
    yield "quote_in_text", menu([b'"6" nails","b","c","d","e",0\r\n'])
    yield "unclosed_quote", menu([b'"a","b, c\r\n'])
    yield "text_after_quote", menu([b'"a" x,"b"\t,"c","d","e" ,0 \r\n'])


def text(value):
    assert len(value) < 256
    return bytes([len(value)]) + value


def number(value):
    """A small integer, no text, or any number."""
    if value is None:
        return b"\x00"
    if isinstance(value, int):
        return bytes([value + 64])
    return b"\x80" + struct.pack(">d", value)


def round_trips():
    look = text(b"Tahoma") + number(1) + number(8.25) + number(-1) + number(0)
    user = b"\x00" + text(PICTURE) + look
    item = b"".join(text(t) for t in (b"Editor", b"C:\\e.exe", b"/a, /b", b"C:\\", b"")) + number(0)
    separator = text(b"") * 5 + number(None)
    yield "empty", b""
    yield "items", user + item + separator + item
    yield "no_items", user
    yield "separators", user + separator * 3
    yield "any_bytes", user + text(bytes(range(128))) + text(bytes(range(128, 256))) + text(
        b"\r\n") + text(b"<START ZOL>") + text(b" , ") + number(3)
    yield "numbers", user + b"".join(
        text(b"") * 5 + number(n)
        for n in (0.0, -0.0, 1e16, 1e15, 9.9e-5, 1e-4, 0.1, 5e-324, 1.7976931348623157e308, 1e300,
                  2.0**53, 1.0 / 3))
    yield "font_sizes", b"\x00" + text(b"") + text(b"") + b"\x81" + struct.pack(
        ">d", 1638.35001) + b"\x83" + struct.pack(">d", 20 / 3) + number(0) + number(0)
    yield "directory_pointer", b"\x01" + text(PICTURE) + look + text(b"D:\\x\\") + text(
        b"*.txt") + number(1) + number(0) + number(1) + number(0)
    yield "picture_of_signs", b"\x00" + text(b"<<\r<\n<\r\n< <START ZOL>\n<START ZOL> \r") + look
    yield "spaces_in_fields", user + text(b" ") + text(b" a ") + text(b"  ") * 3 + number(-5)


KINDS = ["keep", "move_up", "move_down", "delete", "separator", "edit", "change_icon",
         "save_appearance", "save_directory", "switch_to_directory", "switch_to_user_defined"]


def rewrite(kind, row, bytes_, leftover=None, can_be_deleted=True, texts=None, long=False):
    flags = ((leftover is not None) + 2 * (not can_be_deleted) + 4 * (texts is not None) +
             8 * long)
    head = bytes([KINDS.index(kind), row, flags])
    if leftover is not None:
        head += text(leftover)
    if texts is not None:
        head += b"".join(text(t) for t in texts) + b"\x07\x01"
    return head + bytes_


def rewrites():
    whole = menu()
    pointer = menu([FOLDER], type_line=POINTER)
    for kind in KINDS:
        yield kind, rewrite(kind, 1, whole)
        yield kind + "_of_pointer", rewrite(kind, 0, pointer)
        yield kind + "_without_marker", rewrite(kind, 1, LOOK + b"".join(ITEMS) + b"<")
        yield kind + "_over_leftover", rewrite(kind, 2, whole, b"left\r\nover", False, long=True)
    yield "delete_last", rewrite("delete", 3, whole)
    yield "move_down_last", rewrite("move_down", 3, whole)
    yield "move_up_first", rewrite("move_up", 0, whole)
    yield "row_too_large", rewrite("edit", 200, whole)
    yield "empty_file", rewrite("move_up", 1, b"")
    yield "one_sign", rewrite("delete", 0, b"<")
    yield "blank_last_line", rewrite("move_up", 1, whole + b"\r\n")
    yield "unclosed_quote", rewrite("delete", 0, whole + b'"a","b, c')
    yield "cut_in_item", rewrite("separator", 1, whole[:-20])
    yield "cut_in_appearance", rewrite("move_up", 1, whole[: whole.index(LOOK) + 9])
    yield "bare_fields", rewrite("keep", 0, menu([b" a , b ,007, 8.250 ,1e999,+5\r\n"]))
    yield "spaces_before_first_field", rewrite("keep", 0, menu(look=b'"  x",T,8,0,0\r\n'))
    yield "picture_of_signs", rewrite(
        "keep", 0, menu(picture=b"<<\r<\n<\r\n< <START ZOL>\n<START ZOL> \r<   \r\n<"))
    yield "marker_inside_line", rewrite("keep", 0, b"x<START ZOL>\r\nUSERDEF\r\n" + LOOK)
    yield "lone_line_ends", rewrite("keep", 0, b"x\r<START ZOL>\rUSERDEF\r1,T,8\r0\n0\ra,b\nc,d,e,6")
    yield "icon_file_is_caption", rewrite(
        "change_icon", 2, whole, texts=[b"", b"", b"", b"", b"Web", b"", b"", b"", b""])
    yield "quotes_in_texts", rewrite(
        "edit", 0, whole, texts=[b'6" nails', b'"', b'""', b'a","b', b"", b"", b"", b"", b""])
    yield "any_picture", rewrite(
        "save_appearance", 0, whole,
        texts=[b"", b"", b"", b"", b"", b"Font", b"\r\n<START ZOL>\r\n<", b"", b""])
    yield "any_folder", rewrite(
        "save_directory", 0, pointer,
        texts=[b"", b"", b"", b"", b"", b"", b"", b"\xe4\x00\\", b"*.*;<"])


JOURNAL, OTHER_MENU, DIALOG, MENU_FOLDER, KEEPS, FINISHED, YES, NOT_REMOVED = (
    1 << bit for bit in range(8))


def journal(flags, menu_bytes, description=b"", head=b"", kind="move_up", cut=0, wrong=(), short=0,
            kept=None):
    """`wrong`: changed bytes, each with its distance from the end of the journal."""
    kinds = KINDS + ["add", "drop"]
    start = bytes([flags, kinds.index(kind), 1, cut]) + text(description)
    if flags & JOURNAL:
        start += b"\x05" + text(head) + (bytes([kept]) if flags & KEEPS else b"")
        start += bytes([len(wrong)]) + b"".join(bytes(one) for one in wrong) + bytes([short])
    return start + menu_bytes


def journals():
    whole = menu()
    head = PICTURE + MARKER
    description = whole[len(head):]
    cut = whole[: len(head) + 40]
    for name, flags in (("no", 0), ("yes", YES), ("other_menu", OTHER_MENU),
                        ("dialog", DIALOG), ("menu_folder", MENU_FOLDER | YES),
                        ("not_removed", NOT_REMOVED | YES), ("no_not_removed", NOT_REMOVED)):
        yield name, journal(JOURNAL | flags, cut, description, head)
    yield "cut_just_before_the_end", journal(
        JOURNAL | FINISHED | YES, b"", description, head, cut=1)
    yield "cut_to_nothing", journal(JOURNAL | FINISHED, b"", description, head, cut=255)
    yield "finished", journal(JOURNAL | FINISHED, b"", description, head)
    yield "another_menu_by_now", journal(JOURNAL, menu(ITEMS[:1]), description, head, kind="edit")
    yield "wrong_checksum", journal(JOURNAL, cut, description, head, wrong=[(0, 1)])
    yield "wrong_size", journal(JOURNAL, cut, description, head, wrong=[(55, 255), (54, 255)])
    yield "wrong_description", journal(JOURNAL, cut, description, head, wrong=[(250, 33)])
    yield "without_its_end", journal(JOURNAL, cut, description, head, short=3)
    yield "added", journal(JOURNAL | KEEPS | YES, whole[:200], head=ITEMS[0], kept=200)
    yield "added_not_kept", journal(JOURNAL | KEEPS, whole[:100], head=ITEMS[0], kept=255)
    for kind in ("add", "drop"):
        yield f"{kind}_after_no", journal(JOURNAL | DIALOG, cut, description, head, kind=kind)
        yield f"{kind}_beside_another_menu", journal(
            JOURNAL | DIALOG | OTHER_MENU, whole, description, head, kind=kind)
        yield f"{kind}_over_leftover", journal(DIALOG, whole, b"old", kind=kind)
    yield "raw", journal(0, whole, b"Corvalis journal" + bytes(56))
    yield "raw_menu", journal(0, whole, menu(ITEMS[:2]), kind="change_icon")
    yield "empty", b""


def main():
    default = pathlib.Path(__file__).parent / "corpus"
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    for target, files in (("load", loads()), ("round_trip", round_trips()),
                          ("rewrite", rewrites()), ("journal", journals())):
        (folder / target).mkdir(parents=True, exist_ok=True)
        for name, content in files:
            (folder / target / name).write_bytes(content)


main()
