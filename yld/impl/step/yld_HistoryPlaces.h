#ifndef YLD_HISTORY_PLACES_H
#define YLD_HISTORY_PLACES_H

#include "platform/sto/sto_Assembly.h"
#include "yld_Assembly.h"
#include "yld_HistoryPoint.h"

#include <optional>
#include <unordered_map>

/// Finds the places of history in the model. What it has looked up it keeps, so that the points of a thousand curves
/// cost one look at the model.
class yld_HistoryPlaces
{
public:
    explicit yld_HistoryPlaces(const sto_Assembly& assembly) : m_store(assembly) {}

    /// Where a stored curve was taken.
    yld_HistoryPoint pointOf(const sto_History& history);
    /// The instance of a mesh; the assembly, as an instance, for its own mesh; null for any other mesh.
    const yld_Instance* instanceOf(int meshIndex);

private:
    yld_Assembly& assembly();
    const yld_Instance& own();
    const yld_Instance* placeOf(const sto_History& history);
    void readMeshes();

    sto_Assembly m_store;
    std::optional<yld_Assembly> m_assembly;
    std::optional<yld_Instance> m_own;
    std::unordered_map<int, yld_Instance> m_byMesh;
};

#endif
