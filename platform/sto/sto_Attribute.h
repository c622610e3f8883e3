#ifndef STO_ATTRIBUTE_H
#define STO_ATTRIBUTE_H

#include "platform/model/mshK_AttributeKinds.h"
#include "platform/store/lnk_ShortCut.h"

/// A handle on a stored object that tells how the analysis was set up. Copies stand for the same object.
template<class Stored> class sto_Attribute
{
public:
    /// None.
    sto_Attribute() = default;
    explicit sto_Attribute(const lnk_ShortCut<Stored>& stored) : m_stored(stored) {}

    bool isValid() const { return m_stored.isValid(); }
    const lnk_ShortCut<Stored>& shortCut() const { return m_stored; }

private:
    lnk_ShortCut<Stored> m_stored;
};

class sto_BC : public sto_Attribute<bndC_BC>
{
public:
    using sto_Attribute::sto_Attribute;
};

class sto_Load : public sto_Attribute<ldcC_Load>
{
public:
    using sto_Attribute::sto_Attribute;
};

class sto_Constraint : public sto_Attribute<cnsC_Constraint>
{
public:
    using sto_Attribute::sto_Attribute;
};

class sto_Interaction : public sto_Attribute<intC_Interaction>
{
public:
    using sto_Attribute::sto_Attribute;
};

class sto_InteractionProperty : public sto_Attribute<intC_InteractionProperty>
{
public:
    using sto_Attribute::sto_Attribute;
};

class sto_ContactControls : public sto_Attribute<intC_ContactControls>
{
public:
    using sto_Attribute::sto_Attribute;
};

class sto_PredefinedField : public sto_Attribute<ldcC_PredefinedField>
{
public:
    using sto_Attribute::sto_Attribute;
};

/// A request for field or for history output.
template<class Output> class sto_OutputRequest : public sto_Attribute<Output>
{
public:
    using sto_Attribute<Output>::sto_Attribute;
};

#endif
