#include "platform/model/mshK_Model.h"

namespace {
bool g_generatesWipMessages = true;
}

void mshK_Model::GenerateWipMessages(bool on) { g_generatesWipMessages = on; }

bool mshK_Model::generatesWipMessages() { return g_generatesWipMessages; }
