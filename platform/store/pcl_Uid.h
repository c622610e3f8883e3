#ifndef PCL_UID_H
#define PCL_UID_H

/// The identity of a persistent object that has none of its own yet: the object id, 0 until it is stored.
class pcl_Uid
{
public:
    pcl_Uid() = default;
    explicit pcl_Uid(long long value) : m_value(value) {}

    long long value() const { return m_value; }
    bool isSet() const { return m_value != 0; }

private:
    long long m_value = 0;
};

#endif
