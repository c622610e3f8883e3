#ifndef SYS_COMPLEX_H
#define SYS_COMPLEX_H

#include <complex>

/// A complex number in double precision.
using sys_complex = std::complex<double>;

#endif
