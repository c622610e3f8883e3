#ifndef YLD_PROPAGATING_COMPONENT_H
#define YLD_PROPAGATING_COMPONENT_H

#include "platform/base/bas_Export.h"
#include "platform/base/sys_complex.h"

class sto_ComponentArg;

/// What one component of a prescribed quantity is.
enum yld_ComponentType : int
{
    yld_UNSET_COMPONENT = 0,   ///< nothing is said about it
    yld_REAL_COMPONENT = 1,    ///< a number
    yld_COMPLEX_COMPONENT = 2, ///< a complex number
    yld_FREE_COMPONENT = 3     ///< prescribed no longer: from this step on the analysis finds it
};

/// One component of a prescribed quantity: a displacement, a force, a magnitude. A plain value.
class YLD_API yld_PropagatingComponent
{
public:
    /// What value() is where it does not apply: the smallest normal double.
    static constexpr double noValue = 2.2250738585072014e-308;

    yld_PropagatingComponent(yld_ComponentType kind) : m_kind(kind) {}
    yld_PropagatingComponent(double value) : m_kind(yld_REAL_COMPONENT), m_value(value) {}
    yld_PropagatingComponent(const sys_complex& value) : m_kind(yld_COMPLEX_COMPONENT), m_complexValue(value) {}

    yld_ComponentType kind() const { return m_kind; }
    double value() const { return m_value; }
    /// Zero where it does not apply.
    const sys_complex& complexValue() const { return m_complexValue; }

    /// unset() and free() change kind() and keep the values. setValue() changes the value and keeps kind(), so a
    /// component that was unset remains so.
    void unset() { m_kind = yld_UNSET_COMPONENT; }
    void free() { m_kind = yld_FREE_COMPONENT; }
    void setValue(double value) { m_value = value; }

    /// For the layers underneath. A kind that is none of the four counts as complex.
    operator sto_ComponentArg() const;

private:
    yld_ComponentType m_kind;
    double m_value = noValue;
    sys_complex m_complexValue;
};

#endif
