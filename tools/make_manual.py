#!/usr/bin/env python3
"""make_manual.py FOLDER - writes the user's manual, docs/Anleitung.md, as FOLDER/Anleitung.html with its pictures.

Any browser shows it, without a net. Only what the manual uses of Markdown is understood; anything else ends with
an error rather than in a page that looks broken.
"""

import html
import re
import shutil
import sys
from pathlib import Path

DOCS = Path(__file__).resolve().parent.parent / "docs"

PAGE = """<!DOCTYPE html>
<html lang="de">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>{title}</title>
<style>
body {{ font: 16px/1.55 "Segoe UI", sans-serif; color: #1d2630; max-width: 46em; margin: 2em auto; padding: 0 1.2em; }}
h1, h2 {{ color: #25507f; line-height: 1.2; }}
h2 {{ margin-top: 2em; border-bottom: 1px solid #d5dde6; padding-bottom: .2em; }}
img {{ max-width: 100%; border: 1px solid #c5ced8; }}
code {{ font-family: Consolas, monospace; background: #eef2f6; padding: 0 .25em; }}
td, th {{ border: 1px solid #c5ced8; padding: .25em .6em; text-align: left; vertical-align: top; }}
table {{ border-collapse: collapse; }}
nav {{ columns: 2; }}
nav a {{ display: block; }}
@media (prefers-color-scheme: dark) {{
  body {{ background: #1b2026; color: #dfe5ec; }} h1, h2, a {{ color: #8fbcf0; }}
  code {{ background: #2a323b; }}
}}
</style>
</head>
<body>
{body}
</body>
</html>
"""


def inline(text, pictures):
    def image(match):
        pictures.append(match[2])
        return f'<img src="{match[2]}" alt="{match[1]}">'
    text = html.escape(text, quote=False)
    text = re.sub(r"!\[([^\]]*)\]\(([^)]+)\)", image, text)
    text = re.sub(r"\[([^\]]+)\]\(([^)]+)\)", r'<a href="\2">\1</a>', text)
    parts = text.split("`")   # emphasis means nothing inside code
    for i in range(0, len(parts), 2):
        parts[i] = re.sub(r"\*\*(.+?)\*\*", r"<strong>\1</strong>", parts[i])
        parts[i] = re.sub(r"\*(.+?)\*", r"<em>\1</em>", parts[i])
    for i in range(1, len(parts), 2):
        parts[i] = f"<code>{parts[i]}</code>"
    return "".join(parts)


def anchor(title):
    return re.sub(r"\W+", "-", title.lower()).strip("-")


def table(lines, pictures):
    rows = [[cell.strip() for cell in line.strip().strip("|").split("|")] for line in lines]
    result = []
    for number, row in enumerate(rows):
        if number == 1:
            continue   # the line between head and body
        tag = "th" if number == 0 else "td"
        result.append("<tr>" + "".join(f"<{tag}>{inline(cell, pictures)}</{tag}>" for cell in row) + "</tr>")
    return "<table>\n" + "\n".join(result) + "\n</table>"


def block(lines, pictures):
    """One paragraph, list, table or heading: lines without an empty one between them."""
    if heading := re.match(r"(#{1,3}) (.+)", lines[0]):
        level, title = len(heading[1]), heading[2]
        if len(lines) > 1:
            raise ValueError(f"an empty line is missing below: {lines[0]}")
        return f'<h{level} id="{anchor(title)}">{inline(title, pictures)}</h{level}>'
    for tag, mark in (("ul", r"- "), ("ol", r"\d+\. ")):
        if re.match(mark, lines[0]):
            items = [f"<li>{inline(re.sub(mark, '', line, count=1), pictures)}</li>" for line in lines
                     if re.match(mark, line)]
            if len(items) < len(lines):
                raise ValueError(f"not all of these are items: {lines[0]}")
            return f"<{tag}>\n" + "\n".join(items) + f"\n</{tag}>"
    if lines[0].startswith("|"):
        return table(lines, pictures)
    if re.match(r"[>~`]|    ", lines[0]):
        raise ValueError(f"this kind of Markdown is not known here: {lines[0]}")
    return "<p>" + inline(" ".join(lines), pictures) + "</p>"


def convert(markdown):
    """The page and the pictures that it shows."""
    pictures = []
    blocks = [block(text.split("\n"), pictures) for text in re.split(r"\n\n+", markdown.strip())]
    title = re.sub(r"<[^>]+>", "", blocks[0])
    chapters = re.findall(r"^## (.+)$", markdown, re.MULTILINE)
    contents = "\n".join(f'<a href="#{anchor(name)}">{html.escape(name)}</a>' for name in chapters)
    blocks.insert(2, f"<nav>\n{contents}\n</nav>")
    return PAGE.format(title=title, body="\n".join(blocks)), pictures


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = Path(sys.argv[1])
    page, pictures = convert((DOCS / "Anleitung.md").read_text(encoding="utf-8"))
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "Anleitung.html").write_text(page, encoding="utf-8")
    for picture in pictures:
        target = folder / picture
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(DOCS / picture, target)


if __name__ == "__main__":
    main()
