#ifndef PATIENT_REPORTER_H
#define PATIENT_REPORTER_H

#include "platform/text/prg_WIP.h"

#include <string>
#include <vector>

/// While it lives it takes errors down and lets the work go on.
class PatientReporter : public prg_WipReporter
{
public:
    PatientReporter() : m_before(lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(this)) { m_errors = true; }
    ~PatientReporter() override { lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(m_before); }
    using prg_WipReporter::Error;
    void Error(const msg_StringBase& text, int) override { told.emplace_back(text.cStr()); }

    std::vector<std::string> told;

private:
    prg_WipReporter* m_before;
};

#endif
