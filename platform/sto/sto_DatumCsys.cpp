#include "platform/sto/sto_DatumCsys.h"

#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"

std::shared_ptr<const axs_DatumCsys> sto_DatumCsys::datum() const
{
    std::shared_ptr<const axs_DatumCsys> body = m_reference.fetch();
    body->verify(m_reference.file()->path());
    return body;
}

namespace {

const axs_NodesPackage& oneNode(const axs_DatumCsys& datum)
{
    if (datum.m_nodes.size() == 0) throw exc_TextException("The coordinate system follows no node.");
    return datum.m_nodes;
}

} // namespace

int sto_DatumCsys::ConstInstanceID() const { return oneNode(*datum()).ConstGetInstanceID(0); }

int sto_DatumCsys::ConstNodeLabel() const { return oneNode(*datum()).ConstGetNodeLabel(0); }

void sto_DatumCsys::axis(int axis, float components[3]) const
{
    const std::shared_ptr<const axs_DatumCsys> body = datum();
    for (int i = 0; i < 3; ++i) {
        components[i] = static_cast<float>(body->m_axes[static_cast<std::size_t>(3 * axis + i)]);
    }
}

void sto_DatumCsys::origin(float coordinates[3]) const
{
    const std::shared_ptr<const axs_DatumCsys> body = datum();
    for (int i = 0; i < 3; ++i) coordinates[i] = static_cast<float>(body->m_origin[static_cast<std::size_t>(i)]);
}
