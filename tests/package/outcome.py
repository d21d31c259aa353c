"""What a check says: a line for what was seen, or the failure that ends it."""


class Failed(Exception):
    pass


class Tally:
    count = 0


def passed(text):
    Tally.count += 1
    print(f"passed  {text}", flush=True)


def require(condition, text):
    if not condition:
        raise Failed(text)


def require_same(found, expected, text):
    """Compares two dictionaries."""
    wrong = [(key, found.get(key), expected.get(key)) for key in sorted(found.keys() | expected.keys())
             if found.get(key) != expected.get(key)]
    require(not wrong, f"{text}; key, found, expected: {wrong[:4]} ({len(wrong)} in all)")
