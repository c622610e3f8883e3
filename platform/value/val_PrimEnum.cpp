#include "platform/value/val_PrimEnum.h"

#include "containers/shr_Map.h"
#include "platform/store/pcl_ClassMetadata.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/store/pcl_ReadVisitor.h"
#include "platform/store/pcl_WriteVisitor.h"
#include "platform/text/msg_Format.h"
#include "platform/value/val_ValueErrorException.h"

#include <cstring>
#include <string>

SHR_1DARRAY_INSTANCE(extern, shr_String)

namespace {

constexpr const char* s_typeAttribute = "type";

const val_PrimEnumRow* rowOfText(const val_PrimEnumRow* rows, const char* text)
{
    for (; rows->text; ++rows)
        if (std::strcmp(rows->text, text) == 0) return rows;
    return nullptr;
}

const val_PrimEnumRow* rowOfNumber(const val_PrimEnumRow* rows, std::int32_t number)
{
    for (; rows->text; ++rows)
        if (rows->value == number) return rows;
    return nullptr;
}

[[noreturn]] void refuse(const shr_String& message) { val_ValueErrorException(message).Throw(__FILE__, __LINE__); }

} // namespace

void val_PrimEnumBase::DeclareMetadata(pcl_MetadataRegistrar& registrar)
{
    pcl_ClassMetadata metadata(ClassName(), TypeId(), 514);
    metadata.AddAttribute(s_typeAttribute, pcl_Kind::STRING);
    registrar.add(metadata);
}

bool val_PrimEnumBase::SetValue(const char* text) { return text && setRow(rowOfText(rows(), text)); }

shr_Map<shr_String, unsigned> val_PrimEnumBase::PermissibleValues() const
{
    shr_Map<shr_String, unsigned> values;
    for (const val_PrimEnumRow* row = rows(); row->text; ++row)
        values.Insert(row->text, static_cast<unsigned>(row->value));
    return values;
}

shr_String val_PrimEnumBase::PermissibleValuesAsString() const
{
    shr_String texts;
    for (const val_PrimEnumRow* row = rows(); row->text; ++row) {
        if (!texts.empty()) texts += ", ";
        texts += row->text;
    }
    return texts;
}

void val_PrimEnumBase::DBWrite(pcl_WriteVisitor& visitor) const
{
    if (visitor.StartWrite(TypeId())) visitor.Write(s_typeAttribute, m_text);
}

bool val_PrimEnumBase::setNumber(std::int32_t number) { return setRow(rowOfNumber(rows(), number)); }

void val_PrimEnumBase::take(std::int32_t number)
{
    if (!setNumber(number))
        refuse(msg_Format("val_PrimEnum(Enum) - Enum value not allowed: %d  Permissible: %s", number,
                          PermissibleValuesAsString()));
}

void val_PrimEnumBase::take(const val_PrimEnumBase& other)
{
    if (!SetValue(other.m_text))
        refuse(msg_Format("val_PrimEnum(const val_PrimEnumBase&) - str not allowed: %s", other.m_text));
}

void val_PrimEnumBase::take(const shr_String& text)
{
    if (!SetValue(text.cStr()))
        refuse(msg_Format("val_PrimEnum(const shr_String&) - str not allowed: %s  Permissible: %s", text,
                          PermissibleValuesAsString()));
}

void val_PrimEnumBase::take(pcl_ReadVisitor& visitor)
{
    std::string text;
    visitor.Read(s_typeAttribute, text);
    if (!SetValue(text.c_str()))
        refuse(msg_Format("val_PrimEnum(const pcl_ReadVisitor&) - str not allowed: %s  Permissible: %s", text.c_str(),
                          PermissibleValuesAsString()));
}

bool val_PrimEnumBase::setRow(const val_PrimEnumRow* row)
{
    if (!row) return false;
    m_text = row->text;
    m_number = row->value;
    return true;
}
