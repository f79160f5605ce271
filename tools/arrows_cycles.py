"""Cycles of a graph that is given as a dict of node -> set of nodes."""

from collections import deque


def reached(graph, start):
    """Everything that one step or more lead to from start."""
    found, waiting = set(), [start]
    while waiting:
        for node in graph.get(waiting.pop(), ()):
            if node not in found:
                found.add(node)
                waiting.append(node)
    return found


def tangles(graph):
    """The sets of nodes that reach one another, in the order of their names."""
    reach = {node: reached(graph, node) for node in graph}
    held = {node: frozenset(n for n in reach[node] if node in reach.get(n, ())) for node in graph}
    return sorted({members for members in held.values() if members}, key=sorted)


def shortest_cycle(graph, members):
    """The shortest path a, b, ..., a inside the members."""
    paths = [path for node in sorted(members) if (path := path_back(graph, node, members))]
    return min(paths, key=len)


def path_back(graph, start, members):
    waiting, seen = deque([[start]]), set()
    while waiting:
        path = waiting.popleft()
        for node in sorted(graph.get(path[-1], ())):
            if node == start:
                return path + [start]
            if node in members and node not in seen:
                seen.add(node)
                waiting.append(path + [node])
    return None
