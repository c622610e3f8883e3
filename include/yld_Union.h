#ifndef YLD_UNION_H
#define YLD_UNION_H

#include "yld_String.h"

/// A value of one of five kinds: integer, float, double, truth value, text. It knows which. Copying is constant time.
class YLD_API yld_Union
{
public:
    yld_Union(int value);
    yld_Union(float value);
    yld_Union(double value);
    yld_Union(bool value);
    yld_Union(const yld_String& value);
    yld_Union(const char* value);
    yld_Union(const yld_Union&);
    yld_Union& operator=(const yld_Union&);
    ~yld_Union();

    /// Each getter gives the value if it is of the kind asked for. Otherwise it raises yld_Exception, error
    /// 6: "The union is not of type int", and so on with float, double, bool and string.
    int getInt() const;
    /// Also gives a double, narrowed to float.
    float getFloat() const;
    /// Does not give a float.
    double getDouble() const;
    bool getBool() const;
    /// Good as long as the union lives and is not assigned to.
    const yld_String& getString() const;

private:
    friend struct yld_UnionTestAccess;
    enum Tag : int
    {
        INTEGER = 0,
        SINGLE = 1,
        DOUBLE = 2,
        BOOLEAN = 3,
        STRING = 4
    };
    explicit yld_Union(Tag tag);

    // Values that the fields have when they are not the one held: the extremes of their types.
    int m_integer;
    float m_single;
    double m_double;
    bool m_boolean;
    yld_String m_string;
    Tag m_tag;
};

#endif
