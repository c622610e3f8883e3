// Any bytes, opened as a file of the store and walked whole: data or one exception of ours. The sample classes have
// every kind of attribute, and lists in lists, which those of the model lack.

#include "fuzz_files.h"
#include "store/sample_states.h"
#include "store/walk_everything.h"

bool fuzz_gaveData = false;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    static const FuzzFile file("store");
    file.put(bytes, count);
    fuzz_gaveData = fuzz_dataOrOneException([] {
        try {
            WalkEverything::from<sample_Book>(file.path());
        } catch (const exc_Exception& failure) {
            // The text names the file.
            if (std::string(failure.what()).compare(0, file.path().size(), file.path()) != 0) std::abort();
            throw;
        }
    });
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t count, std::size_t largest,
                                               unsigned seed)
{
    return fuzz_mutateFile(bytes, count, largest, seed);
}
