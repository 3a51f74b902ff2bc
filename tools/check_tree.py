#!/usr/bin/env python3
"""Checks of the source tree that no compiler makes: layers, include loops, file
sizes, forbidden calls, pictures that do not exist. Prints one line per finding;
exits with 1 when there is any.

    tools/check_tree.py [ROOT]
"""
import pathlib
import re
import sys

# What each folder may include besides itself: the layers of docs/architecture.md.
# A folder that is not listed is not checked for layers.
CONTROLS = {"controls", "plugin", "http", "common", "hostapi", "Resources"}
LAYERS = {
    "hostapi": set(),
    "Resources": set(),
    "common": {"hostapi"},
    "http": {"common", "hostapi", "Resources"},
    "plugin": {"common", "hostapi"},
    "sample": set(),
    "backend": {"sample", "common"},
    "controls": {"plugin", "common", "hostapi", "Resources"},
    "messages": {"http", "common", "hostapi"},
    "webview": {"http", "common", "hostapi"},
    "contacts": CONTROLS | {"messages"},
    "detail": CONTROLS,
    "org": CONTROLS,
    "virtualteam": CONTROLS,
    "servicenum": CONTROLS | {"webview"},
    "ExternalFriend": CONTROLS | {"contacts"},
}
FEATURES = {"contacts", "detail", "org", "virtualteam", "servicenum", "ExternalFriend"}
# The pane, which assembles the features, and the module's entry stand above their folders.
ABOVE = {name: CONTROLS | FEATURES for name in
         ("contacts/assembly", "contacts/friendwidget", "plugin/friendui_plugin")}
# What differs between the systems, for every folder.
BELOW = {"common/platform", "common/lockfile"}
CODE = {".h", ".cpp"}
MAX_LINES = 500
FORBIDDEN = {
    r"\bignoreSslErrors\s*\(": "TLS errors are never ignored",
}
PICTURE = re.compile(r'"(Resources/[^"%]+\.(?:png|gif|xml))"')
COMMENT = re.compile(r"//.*")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)


def component(path):
    """A header and its source file count as one: "folder/name"."""
    return str(pathlib.PurePosixPath(path).with_suffix(""))


def sources(root):
    for path in sorted(root.rglob("*")):
        relative = path.relative_to(root)
        top = relative.parts[0]
        if path.suffix not in CODE or top == "build" or top.startswith(".") \
                or "node_modules" in relative.parts:
            continue
        yield relative.as_posix(), path.read_text(encoding="utf-8", errors="replace")


def layer_findings(name, includes):
    folder = name.split("/", 1)[0]
    allowed = ABOVE.get(component(name), LAYERS.get(folder))
    if allowed is None:
        return
    for included in includes:
        target = included.split("/", 1)[0]
        if component(included) in ABOVE and component(name) not in ABOVE:
            yield f'{name}: includes "{included}", which stands above its folder'
        elif target in LAYERS and target != folder and target not in allowed \
                and component(included) not in BELOW:
            yield f'{name}: includes "{included}", which is not below {folder}/'


def loops(graph):
    """The include loops among components, each as its members in order."""
    state, found = {}, []
    for start in sorted(graph):
        stack = [(start, iter(sorted(graph[start])))] if start not in state else []
        path = [start] if stack else []
        state.setdefault(start, "open")
        while stack:
            node, rest = stack[-1]
            following = next(rest, None)
            if following is None:
                state[node] = "done"
                stack.pop()
                path.pop()
            elif state.get(following) == "open":
                found.append(path[path.index(following):] + [following])
            elif following not in state:
                state[following] = "open"
                stack.append((following, iter(sorted(graph.get(following, ())))))
                path.append(following)
    return found


def check(root):
    findings, graph = [], {}
    for name, text in sources(root):
        includes = INCLUDE.findall(text)
        findings += layer_findings(name, includes)
        for included in includes:
            if component(included) != component(name) and (root / included).is_file():
                graph.setdefault(component(name), set()).add(component(included))
        lines = text.count("\n")
        if lines > MAX_LINES:
            findings.append(f"{name}: {lines} lines, more than {MAX_LINES}")
        if not name.startswith("tests/"):
            findings += [f"{name}: there is no {picture}" for picture in PICTURE.findall(COMMENT.sub("", text))
                         if not (root / picture).is_file()]
            findings += [f"{name}: {reason}" for pattern, reason in FORBIDDEN.items()
                         if re.search(pattern, text)]
    findings += ["include loop: " + " -> ".join(loop) for loop in loops(graph)]
    return findings


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    findings = check(root)
    print("\n".join(findings) if findings else "the tree is clean")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
