#!/usr/bin/env python3
"""make_pages.py OUT: writes the publisher's banner and news pages in all their languages,
and the picture of the banner, below OUT, as the publisher serves them."""
import html
import json
import pathlib
import string
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent


def template(name):
    return string.Template((HERE / name).read_text(encoding="utf-8"))


def clickable(kind, address, inside):
    return f"""    <div class="{kind}" onclick="PCOpenUrl(home + '{address}')">{inside}</div>"""


def tabs(texts):
    return "\n".join(clickable("tab", f"/tab{i}", html.escape(text)) for i, text in enumerate(texts, 1))


def rows(news):
    lines = []
    for i, (kind, text, date) in enumerate(news):
        inside = (f'<span class="kind kind{i}">{html.escape(kind)}</span>'
                  f'<span class="text">{html.escape(text)}</span><span class="date">{date}</span>')
        lines.append(clickable("row", f"/news{i + 1}", inside))
    return "\n".join(lines)


def make_pages(out):
    banner, news = out / "PCpic", out / "PCpic/news"
    news.mkdir(parents=True, exist_ok=True)
    (out / "pages").mkdir(exist_ok=True)
    texts = json.loads((HERE / "texts.json").read_text(encoding="utf-8"))
    for code, market in texts.items():
        words = {key: html.escape(text) for key, text in market.items() if isinstance(text, str)}
        words["code"] = code
        (banner / f"{code}.html").write_text(
            template("banner.html").substitute(words, tabs=tabs(market["tabs"])), encoding="utf-8")
        (news / f"{code}.html").write_text(
            template("news.html").substitute(words, rows=rows(market["news"])), encoding="utf-8")
    subprocess.run(["rsvg-convert", HERE / "sea.svg", "-o", out / "pages/sea.png"], check=True)


if __name__ == "__main__":
    make_pages(pathlib.Path(sys.argv[1]))
