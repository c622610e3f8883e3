#include "yld_AttributeRepository.h"

#include "platform/model/mshK_AttributeKinds.h"
#include "platform/sto/sto_Attribute.h"
#include "platform/sto/sto_Model.h"
#include "yld/impl/base/yld_Raise.h"

template<class Stored> yld_Attribute<Stored>::yld_Attribute() = default;
template<class Stored> yld_Attribute<Stored>::yld_Attribute(const Stored& stored) : m_stored(stored) {}
template<class Stored> yld_Attribute<Stored>::yld_Attribute(const yld_Attribute&) = default;
template<class Stored> yld_Attribute<Stored>& yld_Attribute<Stored>::operator=(const yld_Attribute&) = default;
template<class Stored> yld_Attribute<Stored>::~yld_Attribute() = default;

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
#define YLD_ATTRIBUTES_OF(stored, value, repository, member, text)                                                     \
    mrp_Container<stored> attributesOf(const mshK_Model& model, const yld_##value*) { return model.m_##member; }
MSHK_ATTRIBUTE_KINDS(YLD_ATTRIBUTES_OF)
#undef YLD_ATTRIBUTES_OF

} // namespace

template<class Value> void yld_AttributeRepository<Value>::Read()
{
    if (!hasModel()) return;
    yld_guard([this] {
        auto entry = attributesOf(*model().model(), static_cast<const Value*>(nullptr)).createIterator();
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

#define YLD_INSTANTIATE(stored, value, repository, member, text)                                                       \
    template class yld_Attribute<yld_##value::Stored>;                                                                 \
    template class yld_AttributeRepository<yld_##value>;
MSHK_ATTRIBUTE_KINDS(YLD_INSTANTIATE)
#undef YLD_INSTANTIATE
