#include "platform/sto/sto_UserData.h"

sto_UserData sto_UserData::create(const std::shared_ptr<fio_FileBody>& file)
{
    sto_UserDataContent content;
    content.m_curves = mrp_Container<sto_UserXYDataContent>::create(file);
    content.m_annotations = mrp_Container<sto_Annotation>::create(file);
    return sto_UserData(lnk_ShortCut<sto_UserDataContent>::create(file, content));
}

sto_UserXYDataContainer sto_UserData::userXYData() const
{
    return isValid() ? sto_UserXYDataContainer(m_content.fetch()->m_curves) : sto_UserXYDataContainer();
}

int sto_UserData::curveCount() const { return m_content.fetch()->m_curves.size(); }

int sto_UserData::annotationCount() const { return m_content.fetch()->m_annotations.size(); }
