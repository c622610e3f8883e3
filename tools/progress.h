#ifndef PROGRESS_H
#define PROGRESS_H

/// A bar on standard error that grows with the steps done. Silent unless standard error is a terminal, and
/// gone from it when this object is: what comes next starts on a clean line.
class tool_Progress
{
public:
    /// @param what   what is going on, borrowed
    /// @param total  how many steps there are
    tool_Progress(const char* what, int total);
    ~tool_Progress();
    tool_Progress(const tool_Progress&) = delete;
    tool_Progress& operator=(const tool_Progress&) = delete;

    /// Shows that `done` steps of all are done. Draws when the picture changes, not more often.
    void show(int done);

private:
    const char* m_what;
    int m_total;
    bool m_isTerminal;
    int m_drawn = -1;
};

#endif
