#ifndef YLD_ATTRIBUTE_REPOSITORY_H
#define YLD_ATTRIBUTE_REPOSITORY_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Repository.h"
#include "yld_String.h"

class outC_FieldOutput;
class outC_HistoryOutput;
class sto_BC;
class sto_Constraint;
class sto_ContactControls;
class sto_Interaction;
class sto_InteractionProperty;
class sto_Load;
class sto_Model;
template<class Output> class sto_OutputRequest;
class sto_PredefinedField;

/// One thing that tells how the analysis was set up: a boundary condition, a load and so on. The value refers to the
/// stored object and has no data of its own; copies refer to the same object, so what is changed through one is seen
/// through the other.
template<class StoredHandle> class YLD_API yld_Attribute
{
public:
    using Stored = StoredHandle;

    /// Empty: it refers to no object.
    yld_Attribute();
    explicit yld_Attribute(const Stored& stored);
    yld_Attribute(const yld_Attribute&);
    yld_Attribute& operator=(const yld_Attribute&);
    ~yld_Attribute();

    bool isEmpty() const noexcept { return m_stored.IsNull(); }
    /// For the layers underneath; it must not be empty.
    const Stored& stored() const noexcept { return *m_stored; }

protected:
    Stored& writableStored() { return m_stored.Get(); }

private:
    shr_COW<Stored> m_stored;
};

/// A boundary condition.
class YLD_API yld_BC : public yld_Attribute<sto_BC>
{
public:
    using yld_Attribute::yld_Attribute;
};

class YLD_API yld_Load : public yld_Attribute<sto_Load>
{
public:
    using yld_Attribute::yld_Attribute;
};

class YLD_API yld_Constraint : public yld_Attribute<sto_Constraint>
{
public:
    using yld_Attribute::yld_Attribute;
};

class YLD_API yld_Interaction : public yld_Attribute<sto_Interaction>
{
public:
    using yld_Attribute::yld_Attribute;
};

class YLD_API yld_InteractionProperty : public yld_Attribute<sto_InteractionProperty>
{
public:
    using yld_Attribute::yld_Attribute;
};

class YLD_API yld_ContactControls : public yld_Attribute<sto_ContactControls>
{
public:
    using yld_Attribute::yld_Attribute;
};

class YLD_API yld_PredefinedField : public yld_Attribute<sto_PredefinedField>
{
public:
    using yld_Attribute::yld_Attribute;
};

class YLD_API yld_FieldOutputRequest : public yld_Attribute<sto_OutputRequest<outC_FieldOutput>>
{
public:
    using yld_Attribute::yld_Attribute;
};

class YLD_API yld_HistoryOutputRequest : public yld_Attribute<sto_OutputRequest<outC_HistoryOutput>>
{
public:
    using yld_Attribute::yld_Attribute;
};

/// All attributes of one kind, by name: the boundary conditions of a database, its loads and so on. yld_Yld gives one
/// for each kind. The objects are kept in the model; the repository has a value that refers to each. A copy shares the
/// entries until one of the two is changed.
template<class Value> class YLD_API yld_AttributeRepository : public yld_Repository<yld_String, Value>
{
public:
    /// Empty, without a model.
    yld_AttributeRepository();
    explicit yld_AttributeRepository(const sto_Model& model);
    yld_AttributeRepository(const yld_AttributeRepository&);
    yld_AttributeRepository& operator=(const yld_AttributeRepository&);
    ~yld_AttributeRepository();

    bool hasModel() const noexcept { return m_model.IsValid(); }
    /// For the layers underneath; there must be one.
    const sto_Model& model() const noexcept { return *m_model; }

    /// Adds a value for each attribute of the model whose name the repository lacks; values that it has stay. Without a
    /// model it does nothing. Reads the names from the file, and none of the objects. Raises the store's own message
    /// when the file cannot be read. yld_Yld calls it whenever it is asked for the repository.
    void Read();

protected:
    sto_Model& writableModel() { return m_model.Get(); }

private:
    shr_COW<sto_Model> m_model;
};

class YLD_API yld_BCRepository : public yld_AttributeRepository<yld_BC>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;
};

class YLD_API yld_LoadRepository : public yld_AttributeRepository<yld_Load>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;
};

class YLD_API yld_ConstraintRepository : public yld_AttributeRepository<yld_Constraint>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;
};

class YLD_API yld_InteractionRepository : public yld_AttributeRepository<yld_Interaction>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;
};

class YLD_API yld_IPRepository : public yld_AttributeRepository<yld_InteractionProperty>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;
};

class YLD_API yld_ContactControlsRepository : public yld_AttributeRepository<yld_ContactControls>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;

    /// The first call adds what the model has; later calls do nothing.
    void Read();

private:
    bool m_read = false;
};

class YLD_API yld_PredefinedFieldRepository : public yld_AttributeRepository<yld_PredefinedField>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;
};

class YLD_API yld_FieldOutputRequestRepository : public yld_AttributeRepository<yld_FieldOutputRequest>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;
};

class YLD_API yld_HistoryOutputRequestRepository : public yld_AttributeRepository<yld_HistoryOutputRequest>
{
public:
    using yld_AttributeRepository::yld_AttributeRepository;
};

#endif
