#include "yld_AttributeRepository.h"

#include "platform/sto/sto_Attribute.h"
#include "platform/sto/sto_Model.h"
#include "yld/impl/base/yld_Raise.h"

template<class Value> yld_Attribute<Value>::yld_Attribute() = default;
template<class Value> yld_Attribute<Value>::yld_Attribute(const Stored& stored) : m_stored(stored) {}
template<class Value> yld_Attribute<Value>::yld_Attribute(const yld_Attribute&) = default;
template<class Value> yld_Attribute<Value>& yld_Attribute<Value>::operator=(const yld_Attribute&) = default;
template<class Value> yld_Attribute<Value>::~yld_Attribute() = default;

template<class Value> yld_AttributeRepository<Value>::yld_AttributeRepository() = default;
template<class Value> yld_AttributeRepository<Value>::yld_AttributeRepository(const sto_Model& model) : m_model(model)
{
}
template<class Value> yld_AttributeRepository<Value>::yld_AttributeRepository(const yld_AttributeRepository&) = default;
template<class Value>
yld_AttributeRepository<Value>& yld_AttributeRepository<Value>::operator=(const yld_AttributeRepository&) = default;
template<class Value> yld_AttributeRepository<Value>::~yld_AttributeRepository() = default;

namespace {

// Where the model keeps the attributes of each kind.
auto attributesOf(const sto_Model& model, const yld_BC*) { return model.boundaryConditions(); }
auto attributesOf(const sto_Model& model, const yld_Load*) { return model.loads(); }
auto attributesOf(const sto_Model& model, const yld_Constraint*) { return model.constraints(); }
auto attributesOf(const sto_Model& model, const yld_Interaction*) { return model.interactions(); }
auto attributesOf(const sto_Model& model, const yld_InteractionProperty*) { return model.interactionProperties(); }
auto attributesOf(const sto_Model& model, const yld_ContactControls*) { return model.contactControls(); }
auto attributesOf(const sto_Model& model, const yld_PredefinedField*) { return model.predefinedFields(); }
auto attributesOf(const sto_Model& model, const yld_FieldOutputRequest*) { return model.fieldOutputRequests(); }
auto attributesOf(const sto_Model& model, const yld_HistoryOutputRequest*) { return model.historyOutputRequests(); }

} // namespace

template<class Value> void yld_AttributeRepository<Value>::Read()
{
    if (!hasModel()) return;
    yld_guard([this] {
        auto entry = attributesOf(model(), static_cast<const Value*>(nullptr)).createIterator();
        for (entry.first(); !entry.isDone(); entry.next()) {
            const typename Value::Stored stored(entry.currentValue());
            this->insert(yld_String(entry.currentKey().c_str()), Value(stored));
        }
    });
}

void yld_ContactControlsRepository::Read()
{
    if (m_read) return;
    yld_AttributeRepository::Read();
    m_read = true;
}

#define YLD_ATTRIBUTE(value)                                                                                           \
    template class yld_Attribute<value>;                                                                               \
    template class yld_AttributeRepository<value>;
YLD_ATTRIBUTE(yld_BC)
YLD_ATTRIBUTE(yld_Load)
YLD_ATTRIBUTE(yld_Constraint)
YLD_ATTRIBUTE(yld_Interaction)
YLD_ATTRIBUTE(yld_InteractionProperty)
YLD_ATTRIBUTE(yld_ContactControls)
YLD_ATTRIBUTE(yld_PredefinedField)
YLD_ATTRIBUTE(yld_FieldOutputRequest)
YLD_ATTRIBUTE(yld_HistoryOutputRequest)
#undef YLD_ATTRIBUTE
