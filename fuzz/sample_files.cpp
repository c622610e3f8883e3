// Makes small true inputs for the fuzzers to begin with: sample_files FOLDER
//
// FOLDER/files has jobs as clients write them, FOLDER/store files of the store alone, FOLDER/texts texts.

#include "store/public_job.h"
#include "store/sample_states.h"
#include "yld.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

void makeStates(const std::string& folder)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        const std::string path = folder + "/sample" + std::to_string(seed) + ".yld";
        std::filesystem::remove(path);
        const fio_File file = fio_File::Create(path.c_str());
        SampleStates::plant(file);
        SampleStates states(seed, 500);
        for (unsigned i = 0; i < 2 * seed; ++i) {
            states.advance(&file);
            file.body()->save();
        }
    }
}

void makeJobs(const std::string& folder)
{
    for (const char* name : {"small", "whole", "empty"}) std::filesystem::remove(folder + "/" + name + ".yld");
    yld_initializeAPI();
    makeSmallJob(folder + "/small.yld");
    makeWholeJob(folder + "/whole.yld");
    const std::string empty = folder + "/empty.yld";
    yld_Yld& db = Yld("empty", "", "", empty.c_str());
    saveYld(db);
    db.close();
    yld_finalizeAPI();
}

// The first byte chooses who takes the text apart.
void makeTexts(const std::string& folder)
{
    const char* const texts[] = {"0/a/b/../c.d.yld", "1https://user@host.org:8080/a/b.yld", "2%1$s of %2$d, %3$s %%",
                                 "3Step-9 7Step-10", "4\x40\x09\x21\xfb\x54\x44\x2d\x18",   "53:abc,0:,2:de,"};
    int number = 0;
    for (const char* text : texts) {
        std::string bytes = text;
        bytes[0] = static_cast<char>(bytes[0] - '0');
        std::ofstream(folder + "/text" + std::to_string(number++), std::ios::binary) << bytes;
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: sample_files FOLDER\n");
        return 2;
    }
    try {
        const std::string folder = arguments[1];
        for (const char* kind : {"files", "store", "texts"}) std::filesystem::create_directories(folder + "/" + kind);
        makeJobs(folder + "/files");
        makeStates(folder + "/store");
        makeTexts(folder + "/texts");
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
