"""The goals, each with the figures that show it."""

import statistics

from figures import MIB, OURS, PYTHON, geometric_mean, ratio, ratio_of_times

DOMINATING = 10_000_000  # bytes of a part beyond which its document is judged as a large part


def judged(goal, limit, value, form="{:.2f}"):
    verdict = "not measured" if value is None else "met" if value <= limit else "not met"
    shown = "-" if value is None else form.format(value)
    return [goal, "at most " + form.format(limit), shown, verdict]


def worst(values):
    """(value, where) of the largest."""
    values = list(values)
    return max(values, default=(None, None), key=lambda item: item[0])


def worst_goal(goal, limit, values, form="{:.2f}"):
    value, where = worst(values)
    row = judged(goal, limit, value, form)
    if where is not None:
        row[2] += f" ({where})"
    return row


def against_peers(rows):
    for row in rows:
        name, peer = row.fastest_peer
        if peer is not None and row.measured(OURS):
            yield ratio(row.cells[OURS], peer)[0], f"{row.name}, {name}"


def against_limit(rows):
    for row in rows:
        if row.limit is not None and row.measured(OURS):
            yield ratio(row.cells[OURS], row.limit)[0], row.name


def growth(rows):
    """The largest time for each part over the smallest, once more relative to the limit's."""
    times = [(row.cells[OURS].median / row.parts, row.limit.median / row.parts) for row in rows
             if row.measured(OURS) and row.limit and row.parts]
    if len(times) < 2:
        return None
    first_ours, first_limit = times[0]
    return max((ours / first_ours) / max(limit / first_limit, 1) for ours, limit in times)


def speed_goals(findings):
    documents = findings.rows_of("document")
    many = [row for row in findings.rows_of("tree", "chain") if row.parts >= 1_000]
    small = [row for row in documents if row.size <= MIB]
    large = [row for row in documents if row.size > MIB]
    dominated = [row for row in findings.rows if row.largest > DOMINATING]
    plain = [row for row in documents if row.largest <= DOMINATING]
    python = geometric_mean(ratio(row.cells[OURS], row.cells[PYTHON])[0] for row in findings.rows
                            if row.measured(OURS) and row.measured(PYTHON))
    return [
        worst_goal("real documents: time of the fastest peer", 0.8, against_peers(plain)),
        worst_goal("one part of over 10 MB: time of the fastest peer", 1.0, against_peers(dominated)),
        worst_goal("1,000 to 50,000 parts: time of the fastest peer", 0.75, against_peers(many)),
        judged("Python's zipfile, geometric mean of all rows", 0.6, python),
        worst_goal("documents over 1 MiB unpacked: time of the limit", 1.3, against_limit(large)),
        worst_goal("smaller documents: time of the limit", 2.0, against_limit(small)),
        worst_goal("1,000 to 50,000 parts: time of the limit", 2.0, against_limit(many)),
        worst_goal("200 MB and stored 64 MB: time of the limit", 1.3,
                   against_limit(findings.rows_of("large"))),
        *(judged(f"linear, {shape}: growth of the time for a part, the limit's taken off", 1.2,
                 growth(findings.rows_of(shape))) for shape in ("tree", "chain")),
    ]


def vocabulary_ratio(findings, ours, peer):
    times, others = findings.vocabulary.get(ours), findings.vocabulary.get(peer)
    return ratio_of_times(times, others)[0] if times and others else None


def vocabulary_goals(findings):
    transforms = [(vocabulary_ratio(findings, f"TransformAndRelease/{n}", f"TransformAndReleasePlain/{n}"),
                   f"{n} attributes") for n in (1, 3, 8, 40)]
    parses = [(vocabulary_ratio(findings, f"ParseAndTransform/{text}", f"ParseAlone/{text}"), text)
              for text in ("made", "real")]
    return [
        judged("Initialize + Terminate: time of filling two plain maps", 0.5,
               vocabulary_ratio(findings, "FillAndClear", "FillAndClearPlain")),
        worst_goal("Transform: time of the plain version", 0.35,
                   [pair for pair in transforms if pair[0] is not None]),
        worst_goal("Xerces-C++ parse with Transform: time of the parse alone", 1.2,
                   [pair for pair in parses if pair[0] is not None], "{:.3f}"),
    ]


def extraction_goals(findings):
    here = {row: {what: statistics.median(peers[OURS]) for what, peers in kinds.items()}
            for row, kinds in findings.extraction.items()}
    engine = [(here[row]["hit"] / statistics.median(kinds["hit"]["unzip -p"]), f"{row}, unzip -p")
              for row, kinds in findings.extraction.items()
              if statistics.median(kinds["hit"].get("unzip -p", [0])) > 0]
    hits = [times["hit"] for row, times in here.items() if row.startswith("tree-")]
    return [
        worst_goal("one extraction: what it adds to a process of `unzip`", 1 / 7, engine, "{:.3f}"),
        judged("one extraction: from the least to the most entries of trees", 1.2,
               max(hits) / min(hits) if hits else None),
        worst_goal("absent name, µs", 3.0, [(times["absent"] / 1e3, row) for row, times in here.items()]),
    ]


def other_goals(findings):
    tool = findings.tool.get("vexpa tree")
    return [
        judged("`vexpa tree` of a small document, ms", 10.0,
               statistics.median(tool) / 1e6 if tool else None, "{:.1f}"),
        worst_goal("peak memory of a walk, share of what is allowed", 1.0,
                   [(entry["walk"] / entry["bound"], entry["row"]) for entry in findings.memory]),
        worst_goal("the same with every part's bytes held, which are allowed besides", 1.0,
                   [(entry["held"] / entry["held_bound"], entry["row"]) for entry in findings.memory]),
    ]


def all_goals(findings):
    return (speed_goals(findings) + vocabulary_goals(findings) + extraction_goals(findings) +
            other_goals(findings))
