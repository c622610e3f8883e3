#ifndef PUBLIC_WALK_H
#define PUBLIC_WALK_H

#include "yld.h"

#include <string>

/// All that a client of the public classes can read in a database, read: each object, each attribute, each value. The
/// library has to be started.
class PublicWalk
{
public:
    /// Opens a database, walks it from end to end and closes it, also when something in it raises. What is open for
    /// writing then gets a part, a step and values of each kind, and is saved.
    /// @param patience  the walk ends without a word after so many values, members and entities: a small file can list
    ///                  one thing very often, and who walks it whole takes long through no fault of the library
    static PublicWalk of(const std::string& path, bool forWriting = false, long long patience = endless);

    static constexpr long long endless = 1LL << 62;

    long long nodes = 0;
    long long elements = 0;
    long long elementClasses = 0;
    long long members = 0; ///< of sets
    long long datums = 0;
    long long steps = 0;
    long long frames = 0;
    long long pairs = 0; ///< frames that have an associated one
    long long fields = 0;
    long long locations = 0;
    long long values = 0;
    long long bulk = 0;    ///< components of bulk data, conjugates and local systems
    long long chosen = 0;  ///< values of subsets by what the model holds
    long long located = 0; ///< values of subsets by position and section point
    long long regions = 0;
    long long curves = 0;
    long long points = 0; ///< pairs of curves
    long long rows = 0;   ///< of a user's curves
    long long dofs = 0;
    long long loadCases = 0;
    double sum = 0.0; ///< of all numbers, so that each is truly read
    std::size_t characters = 0;

private:
    struct Enough
    {
    };

    explicit PublicWalk(long long patience) : m_patience(patience) {}

    void spend(long long count = 1)
    {
        m_patience -= count;
        if (m_patience < 0) throw Enough();
    }
    template<class Number> void add(Number number) { sum += static_cast<double>(number); }
    template<class Number> void add(const Number* numbers, long long count);
    template<class Number> void add(const yld_Sequence<Number>& numbers);
    void add(const yld_String& text) { characters += static_cast<std::size_t>(text.length()); }
    void add(const yld_SectionPoint& point);

    void walk(yld_Yld& database);
    void write(yld_Yld& database);
    void walkHeader(const yld_Yld& database);
    void walkJob(const yld_Yld& database);
    void walkAttributes(yld_Yld& database);
    void walkUserData(const yld_UserData& userData);
    void walkSet(const yld_Set& set, bool ofAssembly);
    void walkSets(const yld_SetRepository& sets, bool ofAssembly);
    void walkEntity(const yld_DiscreteEntity& entity, bool isAssembly);
    template<class Entity> void walkPartOrInstance(const Entity& entity, const yld_Sequence<yld_String>& datumNames);
    void walkAssembly(const yld_Assembly& assembly, const yld_Sequence<yld_String>& datumNames);
    void walkStep(yld_Step& step, const yld_Assembly& assembly);
    void walkDofs(const yld_SequenceNodalDofs& list);
    void walkFrame(const yld_Frame& frame, const yld_Assembly& assembly);
    void walkField(const yld_FieldOutput& field);
    void walkValue(const yld_FieldValue& value);
    void walkBlock(const yld_FieldBulkData& block);
    void walkLocations(const yld_FieldOutput& field);
    void walkSubsets(const yld_FieldOutput& field, const yld_Instance& instance);
    long long lookAt(const yld_FieldOutput& subset);
    void walkHistory(const yld_Step& step);
    void walkPoint(const yld_HistoryPoint& point);
    void walkCurve(const yld_HistoryOutput& curve);

    long long m_patience;
};

#endif
