#include "exodus_reader.h"

#include "failure.h"
#include "netcdf_size.h"

#include <algorithm>
#include <cstdio>
#include <exodusII.h>
#include <fcntl.h>
#include <limits>
#include <unistd.h>

namespace {

constexpr ex_entity_type entityTypes[] = {EX_GLOBAL, EX_NODAL, EX_ELEM_BLOCK, EX_NODE_SET, EX_SIDE_SET};

// Writers pad names with blanks, and some leave bytes after the end.
std::string trimmed(const char* text)
{
    std::string result(text);
    result.erase(result.find_last_not_of(" \t\r\n") + 1);
    result.erase(0, result.find_first_not_of(" \t"));
    return result;
}

// While the C library opens a file: it tells some failures in several lines of its own, whatever its options
// say.
class QuietErrors
{
public:
    QuietErrors() : m_kept(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3))
    {
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (m_kept >= 0 && nowhere >= 0) {
            std::fflush(stderr);
            ::dup2(nowhere, STDERR_FILENO);
        }
        if (nowhere >= 0) ::close(nowhere);
    }
    ~QuietErrors()
    {
        if (m_kept < 0) return;
        std::fflush(stderr);
        ::dup2(m_kept, STDERR_FILENO);
        ::close(m_kept);
    }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    int m_kept;
};

// A table of fixed-width texts, as the C library wants it.
class TextTable
{
public:
    TextTable(std::size_t count, std::size_t width) : m_bytes(count * (width + 1), '\0'), m_rows(count)
    {
        for (std::size_t i = 0; i < count; ++i) m_rows[i] = m_bytes.data() + i * (width + 1);
    }
    char** rows() { return m_rows.data(); }

private:
    std::vector<char> m_bytes;
    std::vector<char*> m_rows;
};

} // namespace

exo_Reader::exo_Reader(const std::string& path) : m_path(path)
{
    tool_requireWholeNetcdf(path);
    ex_opts(EX_DEFAULT);
    int computing = static_cast<int>(sizeof(double));
    int stored = 0;
    float version = 0.0f;
    {
        const QuietErrors quiet;
        m_id = ex_open(path.c_str(), EX_READ, &computing, &stored, &version);
    }
    if (m_id < 0) throw tool_Failure("not an Exodus II file: " + path);
    try {
        readDescription();
    } catch (...) {
        ex_close(m_id);
        throw;
    }
}

exo_Reader::~exo_Reader() { ex_close(m_id); }

void exo_Reader::check(int status, const char* what) const
{
    // Positive results are warnings: an empty set, a table that is not there.
    if (status < 0) throw tool_Failure(std::string("cannot read ") + what + ": " + m_path);
}

int exo_Reader::number(std::int64_t count, const char* what) const
{
    if (count < 0 || count > std::numeric_limits<int>::max() / 32)
        throw tool_Failure(std::string("number of ") + what + " is out of range: " + m_path);
    return static_cast<int>(count);
}

void exo_Reader::readDescription()
{
    ex_init_params parameters = {};
    check(ex_get_init_ext(m_id, &parameters), "the description");
    m_title = trimmed(parameters.title);
    m_dimension = number(parameters.num_dim, "dimensions");
    if (m_dimension < 1 || m_dimension > 3)
        throw tool_Failure("a model of " + std::to_string(m_dimension) + " dimensions: " + m_path);
    m_numNodes = number(parameters.num_nodes, "nodes");
    m_numElements = number(parameters.num_elem, "elements");
    m_numOtherEntities = number(parameters.num_edge_blk + parameters.num_face_blk + parameters.num_edge_sets +
                                    parameters.num_face_sets + parameters.num_elem_sets,
                                "edge and face blocks");

    const std::int64_t used = ex_inquire_int(m_id, EX_INQ_DB_MAX_USED_NAME_LENGTH);
    const std::int64_t allowed = ex_inquire_int(m_id, EX_INQ_DB_MAX_ALLOWED_NAME_LENGTH);
    m_nameLength = static_cast<int>(std::clamp<std::int64_t>(std::max(used, allowed), 32, 4096));
    ex_set_max_name_length(m_id, m_nameLength);

    readBlocks(number(parameters.num_elem_blk, "element blocks"));
    readSets(number(parameters.num_node_sets, "node sets"), false, m_nodeSets);
    readSets(number(parameters.num_side_sets, "side sets"), true, m_sideSets);

    const int numTimes = number(ex_inquire_int(m_id, EX_INQ_TIME), "time steps");
    m_times.resize(static_cast<std::size_t>(numTimes));
    if (numTimes > 0) check(ex_get_all_times(m_id, m_times.data()), "the times");
    readVariables();
}

std::vector<std::string> exo_Reader::names(int entityType, int count) const
{
    std::vector<std::string> result(static_cast<std::size_t>(count));
    TextTable table(result.size(), static_cast<std::size_t>(m_nameLength));
    // Files older than names have no table of them.
    if (ex_get_names(m_id, static_cast<ex_entity_type>(entityType), table.rows()) >= 0)
        for (std::size_t i = 0; i < result.size(); ++i) result[i] = trimmed(table.rows()[i]);
    return result;
}

void exo_Reader::readBlocks(int count)
{
    if (count == 0) return;
    std::vector<int> ids(static_cast<std::size_t>(count));
    check(ex_get_ids(m_id, EX_ELEM_BLOCK, ids.data()), "the element blocks");
    const std::vector<std::string> blockNames = names(EX_ELEM_BLOCK, count);
    std::int64_t first = 0;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        char type[MAX_LINE_LENGTH + 1] = {};
        int elements = 0, nodes = 0, edges = 0, faces = 0, attributes = 0;
        check(ex_get_block(m_id, EX_ELEM_BLOCK, ids[i], type, &elements, &nodes, &edges, &faces, &attributes),
              "an element block");
        exo_Block block;
        block.id = ids[i];
        block.name = blockNames[i];
        block.type = trimmed(type);
        block.numElements = number(elements, "elements of a block");
        block.nodesPerElement = number(nodes, "nodes of an element");
        block.numAttributes = number(attributes, "attributes");
        block.firstElement = static_cast<int>(first);
        first += block.numElements;
        if (first > m_numElements) throw tool_Failure("blocks have more elements than the file: " + m_path);
        m_blocks.push_back(block);
    }
    if (first != m_numElements) throw tool_Failure("blocks have fewer elements than the file: " + m_path);
}

void exo_Reader::readSets(int count, bool areSides, std::vector<exo_Set>& into) const
{
    if (count == 0) return;
    const ex_entity_type type = areSides ? EX_SIDE_SET : EX_NODE_SET;
    const char* const what = areSides ? "the side sets" : "the node sets";
    std::vector<int> ids(static_cast<std::size_t>(count));
    check(ex_get_ids(m_id, type, ids.data()), what);
    const std::vector<std::string> setNames = names(type, count);
    for (std::size_t i = 0; i < ids.size(); ++i) {
        int size = 0, factors = 0;
        check(ex_get_set_param(m_id, type, ids[i], &size, &factors), what);
        into.push_back(
            {ids[i], setNames[i], number(size, "members of a set"), number(factors, "distribution factors")});
    }
}

void exo_Reader::readVariables()
{
    for (int kind = exo_GLOBAL; kind <= exo_SIDE_SET; ++kind) {
        int count = 0;
        if (ex_get_variable_param(m_id, entityTypes[kind], &count) < 0 || count <= 0) continue;
        number(count, "variables");
        TextTable table(static_cast<std::size_t>(count), static_cast<std::size_t>(m_nameLength));
        check(ex_get_variable_names(m_id, entityTypes[kind], count, table.rows()), "the names of variables");
        for (int i = 0; i < count; ++i) m_variables[kind].push_back(trimmed(table.rows()[i]));
    }
    const std::size_t numVariables = m_variables[exo_ELEMENT].size();
    m_truth.assign(m_blocks.size() * numVariables, 1);
    if (!m_truth.empty())
        check(ex_get_truth_table(m_id, EX_ELEM_BLOCK, static_cast<int>(m_blocks.size()), static_cast<int>(numVariables),
                                 m_truth.data()),
              "the truth table");
    for (const exo_VariableKindEnm kind : {exo_NODE_SET, exo_SIDE_SET}) {
        const std::size_t numSets = (kind == exo_NODE_SET ? m_nodeSets : m_sideSets).size();
        std::vector<int>& truth = m_setTruth[kind == exo_SIDE_SET];
        truth.assign(numSets * m_variables[kind].size(), 1);
        if (!truth.empty())
            check(ex_get_truth_table(m_id, entityTypes[kind], static_cast<int>(numSets),
                                     static_cast<int>(m_variables[kind].size()), truth.data()),
                  "the truth table of sets");
    }
}

std::vector<int> exo_Reader::nodeLabels() const
{
    std::vector<int> labels(static_cast<std::size_t>(m_numNodes));
    if (m_numNodes > 0) check(ex_get_id_map(m_id, EX_NODE_MAP, labels.data()), "the node numbers");
    return labels;
}

std::vector<int> exo_Reader::elementLabels() const
{
    std::vector<int> labels(static_cast<std::size_t>(m_numElements));
    if (m_numElements > 0) check(ex_get_id_map(m_id, EX_ELEM_MAP, labels.data()), "the element numbers");
    return labels;
}

std::vector<std::vector<double>> exo_Reader::coordinates() const
{
    std::vector<std::vector<double>> axes(static_cast<std::size_t>(m_dimension),
                                          std::vector<double>(static_cast<std::size_t>(m_numNodes)));
    if (m_numNodes > 0)
        check(ex_get_coord(m_id, axes[0].data(), m_dimension > 1 ? axes[1].data() : nullptr,
                           m_dimension > 2 ? axes[2].data() : nullptr),
              "the coordinates");
    return axes;
}

std::vector<int> exo_Reader::connectivity(const exo_Block& block) const
{
    std::vector<int> nodes(static_cast<std::size_t>(block.numElements) *
                           static_cast<std::size_t>(block.nodesPerElement));
    if (nodes.empty()) return nodes;
    check(ex_get_conn(m_id, EX_ELEM_BLOCK, block.id, nodes.data(), nullptr, nullptr), "the connectivity");
    for (int& node : nodes) {
        if (node < 1 || node > m_numNodes)
            throw tool_Failure("block " + std::to_string(block.id) + " names node " + std::to_string(node) + " of " +
                               std::to_string(m_numNodes) + ": " + m_path);
        --node;
    }
    return nodes;
}

std::vector<int> exo_Reader::nodesOf(const exo_Set& set) const
{
    std::vector<int> nodes(static_cast<std::size_t>(set.size));
    if (nodes.empty()) return nodes;
    check(ex_get_set(m_id, EX_NODE_SET, set.id, nodes.data(), nullptr), "a node set");
    for (int& node : nodes) {
        if (node < 1 || node > m_numNodes)
            throw tool_Failure("node set " + std::to_string(set.id) + " names node " + std::to_string(node) + " of " +
                               std::to_string(m_numNodes) + ": " + m_path);
        --node;
    }
    return nodes;
}

void exo_Reader::sidesOf(const exo_Set& set, std::vector<int>& elements, std::vector<int>& sides) const
{
    elements.assign(static_cast<std::size_t>(set.size), 0);
    sides.assign(static_cast<std::size_t>(set.size), 0);
    if (elements.empty()) return;
    check(ex_get_set(m_id, EX_SIDE_SET, set.id, elements.data(), sides.data()), "a side set");
    for (int& element : elements) {
        if (element < 1 || element > m_numElements)
            throw tool_Failure("side set " + std::to_string(set.id) + " names element " + std::to_string(element) +
                               " of " + std::to_string(m_numElements) + ": " + m_path);
        --element;
    }
}

void exo_Reader::globalValues(int step, std::vector<double>& values) const
{
    values.resize(m_variables[exo_GLOBAL].size());
    if (values.empty()) return;
    check(ex_get_var(m_id, step + 1, EX_GLOBAL, 1, 0, static_cast<std::int64_t>(values.size()), values.data()),
          "the global variables");
}

void exo_Reader::nodalValues(int step, std::size_t variable, std::vector<double>& values) const
{
    values.resize(static_cast<std::size_t>(m_numNodes));
    if (values.empty()) return;
    check(ex_get_var(m_id, step + 1, EX_NODAL, static_cast<int>(variable) + 1, 1, m_numNodes, values.data()),
          ("nodal variable " + m_variables[exo_NODAL][variable]).c_str());
}

void exo_Reader::elementValues(int step, std::size_t variable, const exo_Block& block,
                               std::vector<double>& values) const
{
    values.resize(static_cast<std::size_t>(block.numElements));
    if (values.empty()) return;
    check(ex_get_var(m_id, step + 1, EX_ELEM_BLOCK, static_cast<int>(variable) + 1, block.id, block.numElements,
                     values.data()),
          ("element variable " + m_variables[exo_ELEMENT][variable]).c_str());
}

void exo_Reader::setValues(int step, exo_VariableKindEnm kind, std::size_t variable, const exo_Set& set,
                           std::vector<double>& values) const
{
    values.resize(static_cast<std::size_t>(set.size));
    if (values.empty()) return;
    check(
        ex_get_var(m_id, step + 1, entityTypes[kind], static_cast<int>(variable) + 1, set.id, set.size, values.data()),
        ("set variable " + m_variables[kind][variable]).c_str());
}
