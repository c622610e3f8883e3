// Makes small true databases to begin with: sample_files FOLDER

#include "store/sample_states.h"

#include <cstdio>
#include <string>

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: sample_files FOLDER\n");
        return 2;
    }
    try {
        for (unsigned seed = 1; seed <= 6; ++seed) {
            const std::string path = std::string(arguments[1]) + "/sample" + std::to_string(seed) + ".yld";
            const fio_File file = fio_File::Create(path.c_str());
            SampleStates::plant(file);
            SampleStates states(seed, 500);
            for (unsigned i = 0; i < 2 * seed; ++i) {
                states.advance(&file);
                file.body()->save();
            }
        }
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
