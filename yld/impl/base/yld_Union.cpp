#include "yld_Union.h"

#include "yld/impl/base/yld_Raise.h"

#include <limits>

yld_Union::yld_Union(Tag tag)
    : m_integer(std::numeric_limits<int>::min()), m_single(std::numeric_limits<float>::min()),
      m_double(std::numeric_limits<double>::min()), m_boolean(false), m_tag(tag)
{
}

yld_Union::yld_Union(int value) : yld_Union(INTEGER) { m_integer = value; }

yld_Union::yld_Union(float value) : yld_Union(SINGLE) { m_single = value; }

yld_Union::yld_Union(double value) : yld_Union(DOUBLE) { m_double = value; }

yld_Union::yld_Union(bool value) : yld_Union(BOOLEAN) { m_boolean = value; }

yld_Union::yld_Union(const yld_String& value) : yld_Union(STRING) { m_string = value; }

yld_Union::yld_Union(const char* value) : yld_Union(STRING) { m_string = value; }

yld_Union::yld_Union(const yld_Union&) = default;

yld_Union& yld_Union::operator=(const yld_Union&) = default;

yld_Union::~yld_Union() = default;

int yld_Union::getInt() const
{
    if (m_tag != INTEGER) {
        yld_raise("The union is not of type int");
    }
    return m_integer;
}

float yld_Union::getFloat() const
{
    if (m_tag != SINGLE && m_tag != DOUBLE) {
        yld_raise("The union is not of type float");
    }
    return m_tag == DOUBLE ? static_cast<float>(m_double) : m_single;
}

// A float is refused although it could be widened: clients tell the two precisions apart by this.
double yld_Union::getDouble() const
{
    if (m_tag != DOUBLE) {
        yld_raise("The union is not of type double");
    }
    return m_double;
}

bool yld_Union::getBool() const
{
    if (m_tag != BOOLEAN) {
        yld_raise("The union is not of type bool");
    }
    return m_boolean;
}

const yld_String& yld_Union::getString() const
{
    if (m_tag != STRING) {
        yld_raise("The union is not of type string");
    }
    return m_string;
}
