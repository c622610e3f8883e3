#ifndef SHR_LIST_H
#define SHR_LIST_H

#include "containers/shr_1DArrayList.h"

/// A plain list for use within the library. It is the paged list, so copying costs a few words.
template<class T> class shr_List : public shr_1DArrayList<T>
{
public:
    using shr_1DArrayList<T>::shr_1DArrayList;
};

#endif
