#ifndef EXODUS_READER_H
#define EXODUS_READER_H

#include <cstdint>
#include <string>
#include <vector>

/// One element block as the file describes it.
struct exo_Block
{
    std::int64_t id = 0;
    std::string name; ///< empty where the file gives none
    std::string type; ///< as written, for example "HEX8" or "tetra"
    int numElements = 0;
    int nodesPerElement = 0;
    int numAttributes = 0;
    int firstElement = 0; ///< position of its first element in the file, counted from 0
};

/// One node set or side set as the file describes it.
struct exo_Set
{
    std::int64_t id = 0;
    std::string name; ///< empty where the file gives none
    int size = 0;
    int numDistributionFactors = 0;
};

/// The variables of one kind.
enum exo_VariableKindEnm
{
    exo_GLOBAL,
    exo_NODAL,
    exo_ELEMENT,
    exo_NODE_SET,
    exo_SIDE_SET
};

/// An Exodus II file opened for reading. All reading goes through here; every failure is a tool_Failure with
/// the path in it, and the C library prints nothing. Positions of nodes, elements and steps count from 0.
class exo_Reader
{
public:
    /// Opens the file and reads its description, no bulk data.
    explicit exo_Reader(const std::string& path);
    ~exo_Reader();
    exo_Reader(const exo_Reader&) = delete;
    exo_Reader& operator=(const exo_Reader&) = delete;

    const std::string& path() const { return m_path; }
    const std::string& title() const { return m_title; }
    int dimension() const { return m_dimension; }
    int numNodes() const { return m_numNodes; }
    int numElements() const { return m_numElements; }
    const std::vector<exo_Block>& blocks() const { return m_blocks; }
    const std::vector<exo_Set>& nodeSets() const { return m_nodeSets; }
    const std::vector<exo_Set>& sideSets() const { return m_sideSets; }
    const std::vector<double>& times() const { return m_times; }
    const std::vector<std::string>& variables(exo_VariableKindEnm kind) const { return m_variables[kind]; }
    /// Whether the elements of a block have a variable.
    bool hasVariable(std::size_t block, std::size_t variable) const
    {
        return m_truth[block * m_variables[exo_ELEMENT].size() + variable] != 0;
    }
    /// Whether a set has a variable of its kind.
    bool hasVariable(exo_VariableKindEnm kind, std::size_t set, std::size_t variable) const
    {
        return m_setTruth[kind == exo_SIDE_SET][set * m_variables[kind].size() + variable] != 0;
    }
    /// Blocks and sets of edges and faces, which are read by nobody here.
    int numOtherEntities() const { return m_numOtherEntities; }

    /// The user's numbers, by position.
    std::vector<int> nodeLabels() const;
    std::vector<int> elementLabels() const;
    /// One array an axis, dimension() of them.
    std::vector<std::vector<double>> coordinates() const;
    /// Rows of nodesPerElement node positions, in the file's node order.
    std::vector<int> connectivity(const exo_Block& block) const;
    /// Positions of the nodes of a set, in the file's order.
    std::vector<int> nodesOf(const exo_Set& set) const;
    /// Positions of the elements of a side set, and their side numbers, which count from 1.
    void sidesOf(const exo_Set& set, std::vector<int>& elements, std::vector<int>& sides) const;
    /// One value a global variable.
    void globalValues(int step, std::vector<double>& values) const;
    /// One value a node. `values` is resized; a buffer to use again spares memory.
    void nodalValues(int step, std::size_t variable, std::vector<double>& values) const;
    /// One value an element of the block.
    void elementValues(int step, std::size_t variable, const exo_Block& block, std::vector<double>& values) const;
    /// One value a node of a node set, or a side of a side set.
    void setValues(int step, exo_VariableKindEnm kind, std::size_t variable, const exo_Set& set,
                   std::vector<double>& values) const;

private:
    void check(int status, const char* what) const;
    int number(std::int64_t count, const char* what) const;
    void readDescription();
    void readBlocks(int count);
    void readSets(int count, bool areSides, std::vector<exo_Set>& into) const;
    void readVariables();
    std::vector<std::string> names(int entityType, int count) const;

    std::string m_path;
    int m_id = -1;
    int m_nameLength = 32;
    std::string m_title;
    int m_dimension = 0;
    int m_numNodes = 0;
    int m_numElements = 0;
    int m_numOtherEntities = 0;
    std::vector<exo_Block> m_blocks;
    std::vector<exo_Set> m_nodeSets;
    std::vector<exo_Set> m_sideSets;
    std::vector<double> m_times;
    std::vector<std::string> m_variables[exo_SIDE_SET + 1];
    std::vector<int> m_truth;
    std::vector<int> m_setTruth[2]; // of node sets and side sets
};

#endif
