#ifndef DFRC_DATUM_REF_H
#define DFRC_DATUM_REF_H

#include "platform/model/axs_DatumCsys.h"

/// A datum system that something else refers to, by its id and directly; or none.
class dfrC_DatumRef
{
public:
    template<class Self, class V> static void attributes(Self& self, V&& visit, const char* id, const char* datum)
    {
        visit(id, self.m_id);
        visit(datum, self.m_datum);
    }

    /// No datum.
    dfrC_DatumRef() = default;
    dfrC_DatumRef(int id, const lnk_ShortCut<axs_DatumCsys>& datum) : m_id(id), m_datum(datum) {}

    bool IsNullRef() const { return m_datum.isNull(); }

    int m_id = 0;
    lnk_ShortCut<axs_DatumCsys> m_datum;
};

#endif
