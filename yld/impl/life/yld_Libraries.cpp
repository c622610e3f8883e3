#include "yld/impl/life/yld_Libraries.h"

#include "platform/base/bas_Library.h"
#include "platform/store/lnk_Root.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/text/arc_ArchCompTable.h"
#include "platform/value/val_PrimEnum.h"
#include "schema/clvS_Families.h"
#include "schema/kcnC_CORMLabelMap.h"

#include <iterator>

namespace {

// The schema to which the metadata of the libraries underneath belong.
constexpr int platformSchema = 1;

bool spatialVectors = false;

void startValues() { pcl_MetadataRegistrar::initClassMetadata(val_PrimEnumBase::DeclareMetadata, platformSchema); }

void startCalculator() { spatialVectors = true; }

void stopRoot() { lnk_Root::Instance().detachAll(); }

void startEvolution()
{
    hvyC_formalize();
    flwC_formalize();
    outC_formalize();
    prfC_formalize();
    secC_formalize();
    adpC_formalize();
    lcsC_formalize();
    kcnC_formalize();
}

// The connector classes declare themselves at their start, and so need the heavy classes before the others do.
void startConnectors()
{
    arc_ArchCompTable::InsertEntry(kcnC_componentNumber, arc_LayoutEntry::ofThisMachine("kcnC"));
    hvyC_formalize();
}

void stopConnectors() { kcnC_CORMLabelMap::Finalize(); }

// What a library does at its first start and last stop stands beside its name.
constinit bas_Library mmo_library("mmo");
constinit bas_Library arc_library("arc");
constinit bas_Library lok_library("lok");
constinit bas_Library prn_library("prn");
constinit bas_Library bas_library("bas");
constinit bas_Library msg_library("msg");
constinit bas_Library shr_library("shr");
constinit bas_Library exc_library("exc");
constinit bas_Library prg_library("prg");
constinit bas_Library gfx_library("gfx");
constinit bas_Library osu_library("osu");
constinit bas_Library aux_library("aux");
constinit bas_Library val_library("val", startValues);
constinit bas_Library shc_library("shc");
constinit bas_Library geo_library("geo");
constinit bas_Library mrp_library("mrp");
constinit bas_Library eng_library("eng");
constinit bas_Library fio_library("fio");
constinit bas_Library hdr_library("hdr");
constinit bas_Library clv_library("clv");
constinit bas_Library dgn_library("dgn");
constinit bas_Library lnk_library("lnk", nullptr, stopRoot);
constinit bas_Library setC_library("setC");
constinit bas_Library ldcC_library("ldcC");
constinit bas_Library sto_library("sto");
constinit bas_Library kcnC_library("kcnC", startConnectors, stopConnectors);
constinit bas_Library calC_library("calC", startCalculator);
constinit bas_Library clvS_library("clvS", startEvolution);

struct Entries
{
    void (*initialize)(int& token);
    void (*finalize)(int& token);
};

#define YLD_ENTRIES(prefix) {prefix##_initialize, prefix##_finalize},
constexpr Entries startOrder[] = {YLD_LIBRARIES(YLD_ENTRIES)};
#undef YLD_ENTRIES

} // namespace

#define YLD_DEFINE_LIBRARY(prefix)                                                                                     \
    void prefix##_initialize(int& token) { prefix##_library.initialize(token); }                                       \
    void prefix##_finalize(int& token) { prefix##_library.finalize(token); }
YLD_LIBRARIES(YLD_DEFINE_LIBRARY)
#undef YLD_DEFINE_LIBRARY

void yld_startLibraries(int& token)
{
    for (const Entries& library : startOrder) {
        library.initialize(token);
    }
}

void yld_stopLibraries(int& token)
{
    for (auto library = std::rbegin(startOrder); library != std::rend(startOrder); ++library) {
        library->finalize(token);
    }
}

bool calC_vectorsAreSpatial() { return spatialVectors; }
