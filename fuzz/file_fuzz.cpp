// Any bytes, opened as a database by a client of the public classes and walked whole: data or one exception of ours.
// Then the same once more below the public classes, whose rows the walk above does not reach all.

#include "fuzz_files.h"
#include "platform/attribute/stpC_Steps.h"
#include "platform/model/mshK_Assembly.h"
#include "platform/model/mshK_Mesh.h"
#include "platform/model/mshK_Model.h"
#include "platform/model/mshK_Part.h"
#include "platform/model/mshK_PartInstance.h"
#include "platform/model/mshK_Step.h"
#include "platform/result/fld_Field.h"
#include "platform/result/fld_FieldDescription.h"
#include "platform/result/fld_Frame.h"
#include "platform/result/fld_History.h"
#include "platform/result/fld_Result.h"
#include "platform/result/fld_Step.h"
#include "platform/sto/sto_ApiExtension.h"
#include "platform/sto/sto_Sto.h"
#include "platform/sto/sto_UserData.h"
#include "platform/text/prg_WIP.h"
#include "store/public_walk.h"
#include "store/walk_everything.h"
#include "yld.h"

#include <ostream>
#include <set>

bool fuzz_gaveData = false;

namespace {

// More than any sample has, and so little that a walk takes far less than the two seconds that it may.
constexpr long long patience = 200000;

class Library
{
public:
    Library()
    {
        yld_initializeAPI();
        lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(&m_reporter);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library()
    {
        lok_ThreadSingleton<prg_WIP>::Instance().InstallReporter(nullptr);
        yld_finalizeAPI();
    }

private:
    // There would be a warning for every other input.
    std::ostream m_nowhere{nullptr};
    yld_WipReporter m_reporter{m_nowhere};
};

// Which class the settings of a step are of stands beside them, so that a walk by classes passes them by.
void readSettings(const std::string& path)
{
    const fio_File file = fio_File::Open(path.c_str(), false, true);
    std::set<long long> seen;
    const auto models = lnk_ShortCut<sto_StoData>(file.body(), file.body()->rootObject()).fetch()->m_models;
    for (int m = 0; m < models.size(); ++m) {
        if (!seen.insert(models.at(m).id()).second) continue;
        const auto steps = models.at(m).fetch()->m_steps;
        for (int i = 0; i < steps.size(); ++i) {
            if (!seen.insert(steps.at(i).id()).second) continue;
            const auto step = steps.at(i).fetch();
            if (!step->m_settings.isNull()) stpC_Step::fetch(step->m_settings, step->m_settingsClass);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    static const Library library;
    static const FuzzFile file("public");
    file.put(bytes, count);
    // Every fourth is opened for writing, which looks at more; chosen by the content, so that a finding stays one.
    unsigned number = 0;
    for (std::size_t i = 0; i < count; ++i) number = number * 31 + bytes[i];
    const bool walked = fuzz_dataOrOneException([&] { PublicWalk::of(file.path(), number % 4 == 3, patience); });
    file.put(bytes, count);
    const bool read = fuzz_dataOrOneException([&] {
        WalkEverything::from<sto_StoData>(file.path());
        readSettings(file.path());
    });
    fuzz_gaveData = walked && read;
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t count, std::size_t largest,
                                               unsigned seed)
{
    return fuzz_mutateFile(bytes, count, largest, seed);
}
