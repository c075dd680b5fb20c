#!/usr/bin/python3
"""Checks that a shared library exports its public interface and nothing else.

The interface is read from the public headers: the members of the classes
marked NVX_API / NVX_RSV_API and the functions marked NVX_API. The exported
symbols come from `nm -D` (ELF) or `objdump -p` (a Windows DLL) and are
demangled with c++filt. Every out-of-line member a header declares must be
exported, and every exported symbol must belong to the interface (inline
members of an exported class may or may not be exported: Windows exports
them, the Linux build hides them). The sorted interface names go to --out,
so that two systems' builds can be compared.
"""
import argparse
import re
import subprocess
import sys

EXPORT_MARKS = ("NVX_API", "NVX_RSV_API")


def strip_comments(text):
    """The text without comments and preprocessor lines."""
    text = re.sub(r"/\*.*?\*/", " ", text, flags=re.S)
    text = re.sub(r"^\s*#[^\n]*", " ", text, flags=re.M)
    return re.sub(r"//[^\n]*", " ", text)


def matching(text, start, open_ch, close_ch):
    """Index just past the bracket that closes the one at `start`."""
    depth = 0
    for i in range(start, len(text)):
        if text[i] == open_ch:
            depth += 1
        elif text[i] == close_ch:
            depth -= 1
            if depth == 0:
                return i + 1
    raise ValueError("unbalanced " + open_ch)


def head_before_parameters(text):
    """The text before the first '(' outside template brackets, or None."""
    depth = 0
    for i, ch in enumerate(text):
        if ch == "<":
            depth += 1
        elif ch == ">":
            depth -= 1
        elif ch == "(" and depth == 0:
            return text[:i]
    return None


def function_name(statement):
    """The name a declaration declares, or None."""
    head = head_before_parameters(statement)
    m = re.search(r"(~?\w+|operator\s*\S+?)\s*$", head) if head is not None else None
    return m.group(1).replace(" ", "") if m else None


def header_interface(paths):
    """(out-of-line names, inline names, exported class names)."""
    outline, inline, classes = set(), set(), set()
    for path in paths:
        text = strip_comments(open(path, encoding="utf-8").read())
        for cm in re.finditer(r"class\s+(?:%s)\s+(\w+)[^{;]*{" % "|".join(EXPORT_MARKS), text):
            qualified = (namespace_of(text, cm.start()) + cm.group(1))
            classes.add(qualified)
            body_start = cm.end() - 1
            body = text[body_start + 1:matching(text, body_start, "{", "}") - 1]
            for statement, has_body in statements(body):
                if "= delete" in statement or "friend" in statement:
                    continue
                name = function_name(statement)
                if name:
                    full = qualified + "::" + name
                    (inline if has_body or "= default" in statement else outline).add(full)
        for fm in re.finditer(r"NVX_API\s+[^;{]*?(\w+)\s*\(", text):
            if not re.match(r"class\b", text[fm.start() + 8:]):
                outline.add(fm.group(1))
    return outline, inline, classes


def namespace_of(text, pos):
    m = None
    for m in re.finditer(r"namespace\s+(\w+)\s*{", text[:pos]):
        pass
    return m.group(1) + "::" if m else ""


def statements(body):
    """Declarations of a class body, with whether each had an inline body."""
    out, current, i = [], "", 0
    while i < len(body):
        ch = body[i]
        if ch == "{":
            end = matching(body, i, "{", "}")
            out.append((current, True))
            current, i = "", end
            continue
        if ch == ";":
            out.append((current, False))
            current = ""
        else:
            current += ch
        i += 1
    return [(re.sub(r"^\s*(public|protected|private)\s*:", "", s).strip(), b) for s, b in out]


def exported_symbols(tool, library):
    if not library.lower().endswith(".dll"):
        out = subprocess.run([tool, "-D", "--defined-only", library], check=True,
                             capture_output=True, text=True).stdout
        names = [line.split()[-1] for line in out.splitlines() if len(line.split()) >= 3]
    else:
        out = subprocess.run([tool, "-p", library], check=True, capture_output=True,
                             text=True).stdout
        part = out.split("[Ordinal/Name Pointer] Table", 1)
        names = re.findall(r"^\s*\[\s*\d+\]\s+(\S+)\s*$", part[1] if len(part) > 1 else "", re.M)
    demangled = subprocess.run(["c++filt"], input="\n".join(names), check=True,
                               capture_output=True, text=True).stdout.splitlines()
    return demangled


def interface_name(symbol, classes):
    """'Class::member' or 'function' for a demangled symbol, or None."""
    symbol = symbol.replace("[abi:cxx11]", "")
    for prefix in ("vtable for ", "typeinfo for ", "typeinfo name for "):
        if symbol.startswith(prefix):
            return "class " + symbol[len(prefix):] if symbol[len(prefix):] in classes else None
    head = head_before_parameters(symbol)
    if head is None:
        return None
    owner, _, name = head.rpartition("::")
    if not owner:
        return name
    return owner + "::" + name if owner in classes else None


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--tool", required=True, help="nm for ELF libraries, objdump for DLLs")
    parser.add_argument("--library", required=True)
    parser.add_argument("--out", required=True)
    parser.add_argument("headers", nargs="+")
    args = parser.parse_args()

    outline, inline, classes = header_interface(args.headers)
    exported, extra = set(), []
    for symbol in exported_symbols(args.tool, args.library):
        name = interface_name(symbol, classes)
        if name is None or (name not in outline and name not in inline
                            and not name.startswith("class ")):
            extra.append(symbol)
        else:
            exported.add(name)
    missing = sorted(outline - exported)
    with open(args.out, "w", encoding="utf-8") as out:
        out.write("\n".join(sorted(exported & outline)) + "\n")
    for symbol in extra[:50]:
        print("exported but not in the public headers:", symbol)
    for name in missing[:50]:
        print("declared in the public headers but not exported:", name)
    print("%s: %d interface names exported, %d extra, %d missing"
          % (args.library, len(exported & outline), len(extra), len(missing)))
    return 1 if extra or missing or not outline else 0


if __name__ == "__main__":
    sys.exit(main())
