#ifndef STO_COMPONENT_ARG_H
#define STO_COMPONENT_ARG_H

#include "platform/base/sys_complex.h"

/// One component of a prescribed quantity, as the store takes it.
class sto_ComponentArg
{
public:
    /// The numbers stand in files: append only, never renumber.
    enum Code : int
    {
        UNSET = 0,
        REAL = 1,
        COMPLEX = 2,
        FREE = 3
    };

    /// One without a value.
    explicit sto_ComponentArg(Code code) : m_code(code) {}
    explicit sto_ComponentArg(double value) : m_code(REAL), m_value(value) {}
    explicit sto_ComponentArg(const sys_complex& value) : m_code(COMPLEX), m_value(value) {}

    Code code() const { return m_code; }
    /// 0 where there is none.
    double real() const { return m_value.real(); }
    const sys_complex& complex() const { return m_value; }

private:
    Code m_code;
    sys_complex m_value;
};

#endif
