"""Documents, and the pages that are made of them: their blocks and their links."""
import html.parser
import os
import re
import urllib.parse

FENCED = re.compile(r"^( *)```([^\n]*)\n(.*?)^ *```$", re.M | re.S)


def documents(folder):
    """The documents of a checkout, or of what was installed, by their paths in it."""
    found = [path for pattern in ("*.md", "docs/*.md", "examples/*.md") for path in folder.glob(pattern)]
    return {path.relative_to(folder).as_posix(): path.read_text(encoding="utf-8") for path in sorted(found)}


def blocks(text):
    """Language and content of each code block."""
    for indent, language, code in FENCED.findall(text):
        yield language, re.sub(f"^{indent}", "", code, flags=re.M)


def anchor(heading):
    """A heading as a link names it."""
    text = re.sub(r"`|\[([^]]*)\]\([^)]*\)", r"\1", heading).strip().lower()
    return re.sub(r"[^\w\- ]", "", text).replace(" ", "-")


def check_links(folder, texts):
    anchors = {name: {anchor(one) for one in re.findall(r"^#+ (.*)$", FENCED.sub("", text), re.M)}
               for name, text in texts.items()}
    for name, text in texts.items():
        for target in re.findall(r"\]\(([^)\s]+)\)", FENCED.sub("", text)):
            path, _, heading = target.partition("#")
            if re.match(r"[a-z]+:", target):
                continue
            file = (folder / name).parent / path if path else folder / name
            relative = os.path.relpath(file, folder).replace(os.sep, "/")
            if not file.exists():
                yield f"{name}: {target} isn't there"
            elif heading and urllib.parse.unquote(heading) not in anchors.get(relative, set()):
                yield f"{name}: {target}: no such heading"


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.anchors, self.links, self.language = [], [], None
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        self.anchors += [attributes["id"]] if "id" in attributes else []
        self.links += [attributes[key] for key in ("href", "src") if key in attributes]
        self.language = attributes.get("lang", self.language) if tag == "html" else self.language


def check_pages(folder, above):
    """The manual's pages. What they find in the folder above, once they are installed, lies in the folder `above`."""
    texts = documents(above)
    pages = {path.name: Page(path) for path in folder.glob("*.html")}
    if "manual.ja.html" not in pages:
        yield f"{folder}: no manual"
    for name, page in pages.items():
        if page.language != ("ja" if ".ja." in name else "en"):
            yield f"{name}: language {page.language}"
        for twice in {one for one in page.anchors if page.anchors.count(one) > 1}:
            yield f"{name}: two headings {twice}"
        for link in page.links:
            path, _, heading = urllib.parse.unquote(link).partition("#")
            if path.startswith("../"):
                headings = {anchor(one) for one in re.findall(r"^#+ (.*)$", FENCED.sub("", texts.get(path[3:], "")), re.M)}
                if path[3:] not in texts or heading and heading not in headings:
                    yield f"{name}: {link} isn't there"
            elif not (folder / (path or name)).exists():
                yield f"{name}: {link} isn't there"
            elif heading and heading not in pages[path or name].anchors:
                yield f"{name}: {link}: no such heading"
