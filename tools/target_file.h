#ifndef TARGET_FILE_H
#define TARGET_FILE_H

#include <string>

/// The file that a command makes. It is written under another name beside the target and takes the target's
/// name when it is whole, so that nobody ever sees half of it. A failure, or a signal that ends the program,
/// takes the unfinished file away. One at a time in a program.
class tool_TargetFile
{
public:
    /// Checks before any work is done: raises tool_Failure if the target exists and may not be replaced, is
    /// what `source` is, is locked by a writer, or cannot be written.
    /// @param mayReplace  an existing target gives way, once the new file is whole
    tool_TargetFile(const std::string& target, const std::string& source, bool mayReplace);
    ~tool_TargetFile();
    tool_TargetFile(const tool_TargetFile&) = delete;
    tool_TargetFile& operator=(const tool_TargetFile&) = delete;

    /// Where to write: a name that is free, in the folder of the target.
    const std::string& path() const { return m_path; }
    /// Gives the file, which is closed by now, the target's name. Raises tool_Failure.
    void commit();

private:
    std::string m_target;
    std::string m_path;
    bool m_mayReplace;
};

#endif
