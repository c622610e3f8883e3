#ifndef PCL_KIND_H
#define PCL_KIND_H

/// What a persistent attribute holds. The kind decides the column that keeps it.
enum class pcl_Kind
{
    INT32,
    INT64,
    FLOAT,
    DOUBLE,
    BOOL,
    STRING,
    INTS,        ///< a short list of 32-bit integers, kept in the row
    DOUBLES,     ///< a short list of doubles, kept in the row
    STRINGS,     ///< a short list of texts, kept in the row
    REFERENCE,   ///< another object of the same file, by its object id
    INT_ARRAY,   ///< bulk: 32-bit integers, kept as extents
    FLOAT_ARRAY, ///< bulk: floats, kept as extents
    DOUBLE_ARRAY ///< bulk: doubles, kept as extents
};

#endif
