#include "platform/model/mshK_Model.h"

#include "platform/model/axs_DatumCsys.h"

namespace {
bool g_generatesWipMessages = true;
}

std::string mshK_Model::datumNameFromID(int id) const
{
    for (int i = 0; i < m_datums.size(); ++i) {
        if (m_datums.at(i).fetch()->m_id == id) return m_datums.key(i);
    }
    return std::string();
}

void mshK_Model::GenerateWipMessages(bool on) { g_generatesWipMessages = on; }

bool mshK_Model::generatesWipMessages() { return g_generatesWipMessages; }
