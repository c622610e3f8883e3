#ifndef NTSC_ANNOTATION_CLIENT_H
#define NTSC_ANNOTATION_CLIENT_H

#include <map>
#include <memory>
#include <string>
#include <vector>

/// Holds the annotations that a thread has in use, under the persistent name of the container that they are from,
/// until that container closes.
class ntsC_AnnotationClient
{
public:
    /// The client of the calling thread.
    static ntsC_AnnotationClient& Instance();

    void Hold(const std::string& container, const std::shared_ptr<const void>& annotation);
    /// For tests.
    int NumHeld(const std::string& container) const;
    /// Drops what is held of a container. @param reason  0
    void ContainerClosing(const std::string& container, int reason);

private:
    std::map<std::string, std::vector<std::shared_ptr<const void>>> m_held;
};

#endif
