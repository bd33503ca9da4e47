"""Holds what there is against a list of it that is kept in the tree."""


def read(path):
    """The lines of a list, without blank ones and comments."""
    with open(path, encoding="utf-8") as lines:
        return {line.strip() for line in lines if line.strip() and not line.startswith("#")}


def compare(found, path):
    """Says on standard output what the list has not and what it has in vain; whether nothing."""
    listed = read(path)
    for name in sorted(found - listed):
        print(f"{name} is there, and {path} does not list it")
    for name in sorted(listed - found):
        print(f"{name} is missing, and {path} lists it")
    return found == listed
