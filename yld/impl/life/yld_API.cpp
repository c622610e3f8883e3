#include "yld_API.h"

#include "platform/model/mshK_Model.h"
#include "platform/sto/sto_StoToolset.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/text/arc_ArchCompTable.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/life/yld_Libraries.h"
#include "yld/impl/life/yld_LibraryState.h"
#include "yld/impl/life/yld_YldRepository.h"
#include "yld_Exception.h"
#include "yld_WipReporter.h"

#include <cstdlib>
#include <iostream>

namespace {

// The schema to which the metadata of this library's own classes belong.
constexpr int ownSchema = 2;

constinit yld_LibraryState state;

// Reporters are never deleted: a thread that was given one may still use it. The chain keeps them in reach.
struct KeptReporter
{
    explicit KeptReporter(KeptReporter* before) : reporter(std::cerr), previous(before) {}

    yld_WipReporter reporter;
    KeptReporter* previous;
};

constinit KeptReporter* keptReporters = nullptr;

void stopAtExit()
{
    if (state.moduleToken != 0) {
        yld_finalizeAPI();
    }
}

} // namespace

const yld_LibraryState& yld_libraryState() { return state; }

void yld_initializeAPI()
{
    if (state.apiCount++ != 0) {
        return;
    }
    ++state.moduleToken;
    yld_initialize(state.moduleToken);
    std::atexit(stopAtExit);
    keptReporters = new KeptReporter(keptReporters);
    state.reporter = &keptReporters->reporter;
    lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(state.reporter);
    mshK_Model::GenerateWipMessages(false);
}

void yld_finalizeAPI()
{
    if (state.apiCount == 0 || --state.apiCount != 0) {
        return;
    }
    --state.moduleToken;
    yld_finalize(state.moduleToken);
}

void yld_initialize(int& token)
{
    if (state.libraryCount++ != 0) {
        return;
    }
    ++token;
    yld_startLibraries(token);
    state.toolsetClient = new yld_StoToolsetClient;
    sto_StoToolset::Instance().AddClient(state.toolsetClient);
    arc_ArchCompTable::InsertEntry(yld_componentNumber, arc_LayoutEntry::ofThisMachine("yld"));
    pcl_MetadataRegistrar::initClassMetadata(yld_Exception::initClassMetadata, ownSchema);
}

void yld_finalize(int& token)
{
    if (state.libraryCount == 0 || --state.libraryCount != 0) {
        return;
    }
    --token;
    yld_YldRepository::Finalize();
    sto_StoToolset::Instance().RemoveClient(state.toolsetClient);
    delete state.toolsetClient;
    state.toolsetClient = nullptr;
    yld_stopLibraries(token);
}
