#ifndef STO_PROCEDURE_H
#define STO_PROCEDURE_H

/// The analysis procedures: a number in the store, a keyword for the user.
class sto_Procedure
{
public:
    enum Number : int
    {
        STATIC = 1,
        FREQUENCY = 14,
        BUCKLE = 15,
        RANDOM_RESPONSE = 35,
        STATIC_PERTURBATION = 38,
        STATIC_RIKS = 39,
        SUBSTRUCTURE_GENERATE = 40
    };

    /// The keyword of a number, spelt as users know it; empty for a number that has none.
    static const char* keyword(int number);
    /// What the frames of a procedure are counted along when nobody says otherwise: 0 time, 1 frequency, 2 modal,
    /// 3 arc length.
    static int domain(int number);
};

#endif
