#!/usr/bin/env bash
# Holds every include of the library (port/, geometry/, src/) to the components declared in the
# root CMakeLists.txt: a file may include headers of its own component and of the components that
# its component names in DEPENDS, nothing else. Also fails when the declared graph has a cycle.
set -euo pipefail
cd "$(dirname "$0")/.."
exec python3 - "$@" <<'PY'
import os, re, sys

cmake = open("CMakeLists.txt").read()
components = {}  # name -> (source dir, header dir or None, deps)
for kind, body in re.findall(r"^\s*orv_(component|headers)\(([^)]*)\)", cmake, re.M):
    words = body.split()
    name, folder, rest = words[0], words[1], words[2:]
    include, deps, mode = None, [], None
    for word in rest:
        if word in ("INCLUDE", "DEPENDS"):
            mode = word
        elif mode == "INCLUDE":
            include = word
        elif mode == "DEPENDS":
            deps.append(word)
    if kind == "headers":
        include, folder = folder, None
    components[name] = (folder, include, [d for d in deps if d in components or "::" not in d])

def owner(path):
    best = None
    for name, (folder, include, _) in components.items():
        for root in (folder, include):
            if root and (path == root or path.startswith(root + "/")):
                if best is None or len(root) > best[1]:
                    best = (name, len(root))
    return best[0] if best else None

search = sorted({inc for _, inc, _ in components.values() if inc}) + [".", "src"]

def resolve(source, spelled, quoted):
    candidates = ([os.path.dirname(source)] if quoted else []) + search
    for base in candidates:
        path = os.path.normpath(os.path.join(base, spelled))
        if os.path.isfile(path):
            return path
    return None

failures = []
for top in ("port", "geometry", "src"):
    for folder, _, names in os.walk(top):
        for file in sorted(names):
            if not file.endswith((".h", ".cpp")):
                continue
            source = os.path.join(folder, file)
            mine = owner(source)
            if mine is None:
                failures.append(f"{source}: belongs to no declared component")
                continue
            allowed = {mine, *components[mine][2]}
            for number, line in enumerate(open(source, encoding="utf-8"), 1):
                match = re.match(r'\s*#\s*include\s*([<"])([^>"]+)[>"]', line)
                if not match:
                    continue
                target = resolve(source, match.group(2), match.group(1) == '"')
                if target is None:
                    continue  # a system or package header
                theirs = owner(target)
                if theirs not in allowed:
                    failures.append(f"{source}:{number}: includes {target} of {theirs}, "
                                    f"which {mine} does not depend on")

# The declared graph must be acyclic.
state = {}
def visit(name, trail):
    if state.get(name) == "done":
        return
    if state.get(name) == "open":
        failures.append("dependency cycle: " + " -> ".join(trail + [name]))
        return
    state[name] = "open"
    for dep in components[name][2]:
        if dep in components:
            visit(dep, trail + [name])
    state[name] = "done"
for name in components:
    visit(name, [])

for failure in failures:
    print(failure)
if failures:
    sys.exit(1)
print(f"layers: {len(components)} components, every include within its declared dependencies")
PY
