#include "platform/model/mshK_Step.h"

const char* mshK_Step::InitialStepName() { return "Initial"; }
