#ifndef YLD_LIBRARIES_H
#define YLD_LIBRARIES_H

// The libraries in the order in which they start; they stop in the reverse order.
// The formatter never settles on this list.
// clang-format off
#define YLD_LIBRARIES(X)                                                                                               \
    X(mmo)                                                                                                             \
    X(arc) X(lok) X(prn) X(bas) X(msg) X(shr) X(exc) X(prg) X(gfx) X(osu) X(aux) X(val) X(shc) X(geo) X(mrp) X(eng)    \
        X(fio) X(hdr) X(clv) X(dgn) X(lnk) X(setC) X(ldcC) X(sto) X(kcnC) X(calC) X(clvS)
// clang-format on

// mmo_initialize(int& token), mmo_finalize(int& token), and so on: nesting start and stop of one library.
#define YLD_DECLARE_LIBRARY(prefix)                                                                                    \
    void prefix##_initialize(int& token);                                                                              \
    void prefix##_finalize(int& token);
YLD_LIBRARIES(YLD_DECLARE_LIBRARY)
#undef YLD_DECLARE_LIBRARY

/// Start all libraries in their order, stop them in the reverse order, each with the same token.
void yld_startLibraries(int& token);
void yld_stopLibraries(int& token);

/// Whether every vector of the calculator has three components whatever the dimension of its model: false
/// until the calculator first starts, true from then on.
bool calC_vectorsAreSpatial();

#endif
