#ifndef STO_USERDATA_H
#define STO_USERDATA_H

#include "platform/sto/sto_UserXYData.h"

class sto_Annotation;

/// What a user has added to a database for plotting: curves and drawn annotations, each in a container by name.
class sto_UserDataContent : public pcl_Class<sto_UserDataContent>
{
public:
    static constexpr const char* className = "sto_UserData";
    static constexpr unsigned classId = 0x00400002;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("curves", self.m_curves);
        visit("annotations", self.m_annotations);
    }

    mrp_Container<sto_UserXYDataContent> m_curves;
    mrp_Container<sto_Annotation> m_annotations;
};

/// A handle on the user data of a store. Copies stand for the same.
class sto_UserData
{
public:
    /// None.
    sto_UserData() = default;
    explicit sto_UserData(const lnk_ShortCut<sto_UserDataContent>& content) : m_content(content) {}
    /// Makes empty user data in a file.
    static sto_UserData create(const std::shared_ptr<fio_FileBody>& file);

    bool isValid() const { return m_content.isValid(); }
    const lnk_ShortCut<sto_UserDataContent>& shortCut() const { return m_content; }
    /// The curves; where there is no user data, none.
    sto_UserXYDataContainer userXYData() const;
    /// The numbers of what is kept, for tests.
    int curveCount() const;
    int annotationCount() const;

private:
    lnk_ShortCut<sto_UserDataContent> m_content;
};

#endif
