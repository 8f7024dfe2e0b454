#!/usr/bin/env python3
"""Compares what orvex-convert makes of a tree with what an independent reader makes of it: names of
the leaves in their order, lengths and topology. Writes a hundred files of all dialects for it.
Needs Debian's python3-dendropy. Usage: compare-convert.py ORVEX_CONVERT [FILE ...]"""

import gzip
import lzma
import pathlib
import random
import subprocess
import sys
import tempfile

import dendropy


def blanks(chance):
    return "".join(chance.choice([" ", "\n", "\t", "\r\n"]) for _ in range(chance.randrange(3)))


class Dialect:
    """Writes random trees with some of the liberties that writers of Newick take."""

    def __init__(self, seed):
        self.chance = random.Random(seed)
        self.quotes = self.chance.random() < 0.5
        self.comments = self.chance.choice(["", "[&&NHX:S=human]", "[&rate=1.5E-2,set={1,2}]", "[a [b] c]"])
        self.lengths = self.chance.random() < 0.7
        self.spaces = self.chance.random() < 0.5
        self.support = self.chance.random() < 0.5

    def gap(self):
        return blanks(self.chance) if self.spaces else ""

    def name(self, number):
        if not self.quotes:
            return f"taxon{number}"
        return self.chance.choice([f"'Taxon no {number}'", f"'o''brien {number}'", f"'a-{number}.1|x'", f"t{number}"])

    def length(self):
        if not self.lengths:
            return ""
        number = self.chance.choice(["1", "0.25", "1e-3", "2.5E+1", "-0.5", ".5"])
        return self.gap() + ":" + self.comments + self.gap() + number

    def tree(self, names):
        if len(names) == 1:
            return self.gap() + names[0] + self.comments + self.length() + self.gap()
        cut = sorted(self.chance.sample(range(1, len(names)), min(len(names) - 1, self.chance.choice([1, 1, 2, 3]))))
        parts = [names[a:b] for a, b in zip([0] + cut, cut + [len(names)])]
        label = self.chance.choice(["0.98", "100"]) if self.support else ""
        return "(" + ",".join(map(self.tree, parts)) + ")" + label + self.length()

    def newick(self):
        count = self.chance.choice([2, 5, 20, 100])
        return self.chance.choice(["", "[&R] ", "[&U]"]) + self.tree([self.name(i) for i in range(count)]) + ";\n"

    def nexus(self):
        count = self.chance.choice([2, 5, 20])
        names = [self.name(i) for i in range(count)]
        word = self.chance.choice([str.lower, str.upper, str.title])
        table = ",\n".join(f"  {i + 1} {name}" for i, name in enumerate(names))
        tree = self.tree([str(i + 1) for i in range(count)])
        return (f"#NEXUS\n[ by hand ]\n{word('begin')} trees;\n {word('translate')}\n{table};\n"
                f" {word('tree')} one = [&R] {tree};\n{word('end')};\n")


def shape(node):
    """A node as nested tuples: the name of a leaf or its children, and the length."""
    length = node.edge.length
    children = tuple(map(shape, node.child_nodes()))
    return (children or node.taxon.label, None if length is None else float(length))


def read(text, schema):
    tree = dendropy.TreeList.get(data=text, schema=schema, preserve_underscores=True,
                                 suppress_internal_node_taxa=True)[0]
    children, _ = shape(tree.seed_node)
    return children


def narrow(text):
    """What the viewer's reader sees: no quotes, no comments. Written anew here, as a recursive split."""
    def item(position):
        children = []
        if text[position] == "(":
            while text[position] in "(,":
                child, position = item(position + 1)
                children.append(child)
            position += 1
        end = min(found for found in (text.find(",", position), text.find(")", position),
                                      len(text) - 2) if found >= 0)
        name, _, length = text[position:end].partition(":")
        return (tuple(children) or name, float(length) if length else None), end
    return item(0)[0][0]


def compare(converter, file, text, schema):
    answer = subprocess.run([converter, "--quiet", file, "-"], capture_output=True, text=True)
    if answer.returncode != 0:
        return answer.stderr.strip()
    return None if narrow(answer.stdout) == read(text, schema) else f"{file}: another tree"


def write_all(folder):
    for seed in range(120):
        dialect = Dialect(seed)
        text, schema = (dialect.newick(), "newick") if seed % 3 else (dialect.nexus(), "nexus")
        pack = {5: gzip.compress, 7: lzma.compress}.get(seed % 10, lambda data: data)
        file = folder / f"{seed}.{schema}"
        file.write_bytes(pack(text.encode()))
        yield file, text, schema


def main(converter, files):
    sys.setrecursionlimit(1000000)
    with tempfile.TemporaryDirectory() as folder:
        cases = list(write_all(pathlib.Path(folder)))
        for file in map(pathlib.Path, files):
            text = file.read_text(encoding="utf-8")
            cases.append((file, text, "nexus" if text.lstrip().lower().startswith("#nexus") else "newick"))
        faults = [fault for case in cases if (fault := compare(converter, *case))]
    print("\n".join(faults) or f"{len(cases)} files are read alike")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2:]))
