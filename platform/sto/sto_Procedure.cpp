#include "platform/sto/sto_Procedure.h"

namespace {

// The texts are compared by users' programs: their spelling is not to be mended.
constexpr const char* keywords[] = {
    "",
    "*STATIC",
    "*STATIC, DIRECT",
    "*DYNAMIC",
    "*DYNAMIC, DIRECT",
    "*DYNAMIC, SUBSPACE",
    "*DYNAMIC, EXPLICIT",
    "*VISCO",
    "*HEAT TRANSFER, , STEADY STATE",
    "*HEAT TRANSFER",
    "*HEAT TRANSFER, DELTAMX=__",
    "*MASS DIFFUSION, STEADY STATE",
    "*MASS DIFFUSION",
    "*MASS DIFFUSION, DCMAX=",
    "*FREQUENCY",
    "*BUCKLE",
    "*COMPLEX FREQUENCY",
    "",
    "*GEOSTATIC",
    "*SOILS",
    "*SOILS, CETOL=__ and/or UTOL=__",
    "*SOILS, CONSOLIDATION",
    "*SOILS, CONSOLIDATION, CETOL=__ and/or UTOL=__",
    "*COUPLED TEMPERATURE-DISPLACEMENT, STEADY STATE",
    "*COUPLED TEMPERATURE-DISPLACEMENT",
    "*COUPLED TEMPERATURE-DISPLACEMENT, CETOL=__",
    "*COUPLED THERMAL-ELECTRICAL, STEADY STATE",
    "*COUPLED THERMAL-ELECTRICAL",
    "*COUPLED THERMAL-ELECTRICAL, DELTMX=__",
    "*USA ADDDED MASS GENERATION",
    "*STEADY STATE TRANSPORT",
    "*STEADY STATE TRANSPORT, DIRECT",
    "*RESPONSE SPECTRUM",
    "*MODAL DYNAMIC",
    "*STEADY STATE DYNAMICS",
    "*RANDOM RESPONSE",
    "*ANNEAL",
    "*DYNAMIC TEMPERATURE-DISPLACEMENT,EXPLICT",
    "*STEP PERTURBATION, *STATIC",
    "*STATIC, RIKS",
    "*SUBSTRUCTURE GENERATE",
};

constexpr int keywordCount = static_cast<int>(sizeof keywords / sizeof keywords[0]);

} // namespace

const char* sto_Procedure::keyword(int number) { return number >= 0 && number < keywordCount ? keywords[number] : ""; }

int sto_Procedure::domain(int number)
{
    switch (number) {
    case FREQUENCY:
    case BUCKLE:
        return 2;
    case RANDOM_RESPONSE:
        return 1;
    case STATIC_RIKS:
        return 3;
    default:
        return 0;
    }
}
