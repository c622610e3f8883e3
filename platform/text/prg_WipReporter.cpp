#include "platform/text/prg_WipReporter.h"

prg_WipReporter::prg_WipReporter() = default;

prg_WipReporter::~prg_WipReporter() = default;

void prg_WipReporter::Error(const msg_StringBase&, int) {}

void prg_WipReporter::Warning(const msg_StringBase&) {}

void prg_WipReporter::Error(const prg_MessageList&, int) {}

void prg_WipReporter::Warning(const prg_MessageList&) {}

void prg_WipReporter::FacilityMessage(const msg_StringBase&, const msg_StringBase&) {}

void prg_WipReporter::Verbose(const msg_StringBase&) {}

void prg_WipReporter::Begin(const msg_StringBase&, int) {}

void prg_WipReporter::Advance(int) {}

void prg_WipReporter::End() {}

void prg_WipReporter::Landmark(const msg_StringBase&) {}

void prg_WipReporter::Print(const msg_StringBase&) {}

void prg_WipReporter::Display(const msg_StringBase&) {}

bool prg_WipReporter::Interrupted() { return false; }

void prg_WipReporter::CommandDone() {}

void prg_WipReporter::InterruptedThrow() {}
