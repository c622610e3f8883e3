#include "platform/base/bas_Library.h"

namespace {

bas_Library::Trace installedTrace = nullptr;

} // namespace

// The token rises first: work that fails leaves the library counted as begun, and the caller sees the
// failure.
void bas_Library::initialize(int& token)
{
    if (m_count++ != 0) {
        return;
    }
    ++token;
    if (installedTrace) {
        installedTrace(m_prefix, true);
    }
    if (m_start) {
        m_start();
    }
}

void bas_Library::finalize(int& token)
{
    if (m_count == 0 || --m_count != 0) {
        return;
    }
    if (m_stop) {
        m_stop();
    }
    --token;
    if (installedTrace) {
        installedTrace(m_prefix, false);
    }
}

bas_Library::Trace bas_Library::SetTrace(Trace trace)
{
    const Trace before = installedTrace;
    installedTrace = trace;
    return before;
}
