"""Writes small Exodus II files, byte by byte: a netCDF classic container with the names that Exodus gives things.

For tests that need a file with a certain oddity. Written from the two formats' definitions; no netCDF library."""

import struct

CHAR, INT, FLOAT, DOUBLE = 2, 4, 5, 6
CODES = {CHAR: "c", INT: "i", FLOAT: "f", DOUBLE: "d"}


def padded(data):
    return data + b"\0" * (-len(data) % 4)


def name_bytes(name):
    raw = name.encode()
    return struct.pack(">i", len(raw)) + padded(raw)


def packed(kind, values):
    if kind == CHAR:
        return values if isinstance(values, bytes) else values.encode()
    return struct.pack(">%d%s" % (len(values), CODES[kind]), *values)


def attributes_bytes(attributes):
    if not attributes:
        return struct.pack(">ii", 0, 0)
    data = struct.pack(">ii", 0x0c, len(attributes))
    for name, kind, values in attributes:
        raw = packed(kind, values)
        count = len(raw) if kind == CHAR else len(values)
        data += name_bytes(name) + struct.pack(">ii", kind, count) + padded(raw)
    return data


class Container:
    """A netCDF classic file of 64-bit offsets; dimension 0 is the unlimited one."""

    def __init__(self):
        self.dimensions = [("time_step", 0)]
        self.attributes = []
        self.variables = []  # name, dimensions, attributes, kind, data: bytes, or one bytes a record

    def dimension(self, name, size):
        self.dimensions.append((name, size))
        return name

    def variable(self, name, dimensions, kind, values, attributes=()):
        by_record = bool(dimensions) and dimensions[0] == "time_step"
        data = [packed(kind, v) for v in values] if by_record else packed(kind, values)
        self.variables.append((name, dimensions, attributes, kind, data))

    def save(self, path, records):
        order = {name: i for i, (name, _) in enumerate(self.dimensions)}
        fixed = [v for v in self.variables if not isinstance(v[4], list)]
        recorded = [v for v in self.variables if isinstance(v[4], list)]
        sizes = dict(self.dimensions)

        def record_size(dimensions, kind):
            size = struct.calcsize(CODES[kind])
            for dimension in dimensions[1:]:
                size *= sizes[dimension]
            return size + -size % 4

        def header(begins):
            data = b"CDF\x02" + struct.pack(">i", records)
            data += struct.pack(">ii", 0x0a, len(self.dimensions))
            for name, size in self.dimensions:
                data += name_bytes(name) + struct.pack(">i", size)
            data += attributes_bytes(self.attributes)
            data += struct.pack(">ii", 0x0b, len(self.variables))
            for name, dimensions, attributes, kind, content in fixed + recorded:
                data += name_bytes(name) + struct.pack(">i", len(dimensions))
                data += b"".join(struct.pack(">i", order[d]) for d in dimensions)
                data += attributes_bytes(attributes)
                size = record_size(dimensions, kind) if isinstance(content, list) else len(padded(content))
                data += struct.pack(">iiq", kind, size, begins.get(name, 0))
            return data

        at = len(header({}))
        begins = {}
        body = []
        for name, _, _, _, content in fixed:
            begins[name] = at
            body.append(padded(content))
            at += len(body[-1])
        for name, dimensions, _, kind, content in recorded:
            begins[name] = at
            at += record_size(dimensions, kind)
            body.append(padded(content[0]) if content else b"")
        for record in range(1, records):
            for _, _, _, _, content in recorded:
                body.append(padded(content[record]))
        with open(path, "wb") as stream:
            stream.write(header(begins))
            stream.writelines(body)


def text_table(texts, width):
    return b"".join(t.encode()[:width - 1].ljust(width, b"\0") for t in texts)


def write(path, dimension, nodes, blocks, node_sets=(), side_sets=(), times=(), nodal=None, element=None,
          title="a test", node_ids=None, element_ids=None, global_names=(), global_values=None, of_node_sets=None, of_side_sets=None):
    """One file.

    nodes      a list of coordinates
    blocks     a list of dicts: id, type, connectivity (rows of node positions from 1), name (optional)
    node_sets  dicts: id, nodes, name; side_sets  dicts: id, sides (pairs of element position and side), name
               both may have "factors", one a node of a node set, or of a side
    of_node_sets, of_side_sets  name to {set id: one list of values a time}
    global_values  a list a time, a value a name of global_names; zeros if left out
    nodal      name to one list of values a time; element  name to {block id: one list of values a time}"""
    nodal, element = nodal or {}, element or {}
    file = Container()
    file.attributes = [("api_version", FLOAT, [6.02]), ("version", FLOAT, [6.02]),
                       ("floating_point_word_size", INT, [8]), ("file_size", INT, [1]), ("title", CHAR, title)]
    file.dimension("len_string", 33)
    file.dimension("len_name", 33)
    file.dimension("num_dim", dimension)
    file.dimension("num_nodes", len(nodes))
    num_elements = sum(len(b["connectivity"]) for b in blocks)
    file.dimension("num_elem", num_elements)
    file.dimension("num_el_blk", len(blocks))
    file.variable("time_whole", ["time_step"], DOUBLE, [[t] for t in times])
    for axis, letter in zip(range(dimension), "xyz"):
        file.variable("coord" + letter, ["num_nodes"], DOUBLE, [node[axis] for node in nodes])

    def entities(prefix, dimension_name, items):
        file.variable(prefix + "_status", [dimension_name], INT, [1] * len(items))
        file.variable(prefix + "_prop1", [dimension_name], INT, [i["id"] for i in items], [("name", CHAR, "ID")])
        file.variable(prefix + "_names", [dimension_name, "len_name"], CHAR,
                      text_table([i.get("name", "") for i in items], 33))

    entities("eb", "num_el_blk", blocks)
    for i, block in enumerate(blocks, 1):
        rows = block["connectivity"]
        count, per = file.dimension("num_el_in_blk%d" % i, len(rows)), file.dimension("num_nod_per_el%d" % i, len(rows[0]))
        file.variable("connect%d" % i, [count, per], INT, [n for row in rows for n in row],
                      [("elem_type", CHAR, block["type"])])
    if node_sets:
        file.dimension("num_node_sets", len(node_sets))
        entities("ns", "num_node_sets", node_sets)
        for i, node_set in enumerate(node_sets, 1):
            size = file.dimension("num_nod_ns%d" % i, len(node_set["nodes"]))
            file.variable("node_ns%d" % i, [size], INT, node_set["nodes"])
            if "factors" in node_set:
                file.variable("dist_fact_ns%d" % i, [size], DOUBLE, node_set["factors"])
    if side_sets:
        file.dimension("num_side_sets", len(side_sets))
        entities("ss", "num_side_sets", side_sets)
        for i, side_set in enumerate(side_sets, 1):
            size = file.dimension("num_side_ss%d" % i, len(side_set["sides"]))
            file.variable("elem_ss%d" % i, [size], INT, [e for e, _ in side_set["sides"]])
            file.variable("side_ss%d" % i, [size], INT, [s for _, s in side_set["sides"]])
            if "factors" in side_set:
                factors = file.dimension("num_df_ss%d" % i, len(side_set["factors"]))
                file.variable("dist_fact_ss%d" % i, [factors], DOUBLE, side_set["factors"])
    if node_ids:
        file.variable("node_num_map", ["num_nodes"], INT, node_ids)
    if element_ids:
        file.variable("elem_num_map", ["num_elem"], INT, element_ids)
    if global_names:
        file.dimension("num_glo_var", len(global_names))
        file.variable("name_glo_var", ["num_glo_var", "len_name"], CHAR, text_table(global_names, 33))
        file.variable("vals_glo_var", ["time_step", "num_glo_var"], DOUBLE, 
                      global_values or [[0.0] * len(global_names) for _ in times])
    if nodal:
        file.dimension("num_nod_var", len(nodal))
        file.variable("name_nod_var", ["num_nod_var", "len_name"], CHAR, text_table(list(nodal), 33))
        for i, values in enumerate(nodal.values(), 1):
            file.variable("vals_nod_var%d" % i, ["time_step", "num_nodes"], DOUBLE, values)
    if element:
        file.dimension("num_elem_var", len(element))
        file.variable("name_elem_var", ["num_elem_var", "len_name"], CHAR, text_table(list(element), 33))
        table = [1 if block["id"] in values else 0 for block in blocks for values in element.values()]
        file.variable("elem_var_tab", ["num_el_blk", "num_elem_var"], INT, table)
        for i, values in enumerate(element.values(), 1):
            for b, block in enumerate(blocks, 1):
                if block["id"] in values:
                    file.variable("vals_elem_var%deb%d" % (i, b), ["time_step", "num_el_in_blk%d" % b], DOUBLE,
                                  values[block["id"]])
    for short, count, size, sets, values_of in (("ns", "num_node_sets", "num_nod_ns%d", node_sets, of_node_sets or {}),
                                                ("ss", "num_side_sets", "num_side_ss%d", side_sets, of_side_sets or {})):
        if not values_of:
            continue
        kind = short[0] + "set"
        variables = file.dimension("num_%s_var" % kind, len(values_of))
        file.variable("name_%s_var" % kind, [variables, "len_name"], CHAR, text_table(list(values_of), 33))
        file.variable("%s_var_tab" % kind, [count, variables], INT,
                      [1 if s["id"] in values else 0 for s in sets for values in values_of.values()])
        for i, values in enumerate(values_of.values(), 1):
            for k, each in enumerate(sets, 1):
                if each["id"] in values:
                    file.variable("vals_%s_var%d%s%d" % (kind, i, short, k), ["time_step", size % k], DOUBLE,
                                  values[each["id"]])
    file.save(path, len(times))
