#include "yld_UserData.h"

#include "platform/sto/sto_UserData.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld_EnumMap.h"

yld_UserXYData::yld_UserXYData() : m_stored(new sto_UserXYData) {}

yld_UserXYData::yld_UserXYData(const yld_String& name, yld_Enum::yld_XYSourceTypeEnm sourceType,
                               const yld_String& sourceFileName, const yld_String& sourceDescription,
                               const yld_String& contentDescription, const yld_String& positionDescription,
                               const yld_String& xAxisLabel, const yld_String& yAxisLabel,
                               const yld_String& legendLabel, const sto_UserXYData& stored)
    : m_name(name), m_sourceType(sourceType), m_sourceFileName(sourceFileName), m_sourceDescription(sourceDescription),
      m_contentDescription(contentDescription), m_positionDescription(positionDescription), m_xAxisLabel(xAxisLabel),
      m_yAxisLabel(yAxisLabel), m_legendLabel(legendLabel), m_stored(new sto_UserXYData(stored))
{
}

yld_UserXYData::yld_UserXYData(const yld_UserXYData&) = default;
yld_UserXYData& yld_UserXYData::operator=(const yld_UserXYData&) = default;
yld_UserXYData::~yld_UserXYData() = default;

yld_String yld_UserXYData::description() const
{
    return yld_guard([this] { return m_stored->isValid() ? yld_String(m_stored->description()) : yld_String(); });
}

const yld_Sequence<yld_Sequence<float>>& yld_UserXYData::getData() const
{
    if (!m_dataRead) {
        yld_guard([this] {
            if (m_stored->isValid() && m_stored->size() > 0) m_data = m_stored->dataListList();
        });
        m_dataRead = true;
    }
    return m_data;
}

void yld_UserXYData::addData(const yld_Sequence<yld_Sequence<float>>& data)
{
    // The store first: it may refuse, and then nothing has changed here.
    yld_guard([&] { m_stored->setDataListList(data); });
    m_data = data;
    m_dataRead = true;
}

yld_UserData::yld_UserData() : m_userData(new sto_UserData) {}

yld_UserData::yld_UserData(const sto_UserData& userData) : m_userData(new sto_UserData(userData)) {}

yld_UserData::yld_UserData(const yld_UserData&) = default;
yld_UserData& yld_UserData::operator=(const yld_UserData&) = default;
yld_UserData::~yld_UserData() = default;

void yld_UserData::readCurves() const
{
    if (m_xyRead) return;
    ReadUserXYDataCon();
    m_xyRead = true;
}

void yld_UserData::ReadUserXYDataCon() const
{
    yld_guard([this] {
        const sto_UserXYDataContainer curves = m_userData->userXYData();
        if (curves.isEmpty()) return;
        auto entry = curves.createIterator();
        for (entry.first(); !entry.isDone(); entry.next()) ReadUserXYData(entry.currentKey().c_str());
    });
}

void yld_UserData::ReadUserXYData(const yld_String& name) const
{
    yld_guard([&] {
        const sto_UserXYData stored = m_userData->userXYData()[name];
        const yld_String legendLabel = stored.legendLabel();
        const yld_String yAxisLabel = stored.yAxisLabel();
        const yld_String xAxisLabel = stored.xAxisLabel();
        const yld_String positionDescription = stored.positionDescription();
        const yld_String contentDescription = stored.contentDescription();
        const yld_String sourceDescription = stored.sourceDescription();
        const yld_String sourceFileName = stored.sourceFileName();
        const yld_Enum::yld_XYSourceTypeEnm sourceType = mapSourceType(stored.sourceType());
        m_curves.insert(name,
                        yld_UserXYData(stored.name(), sourceType, sourceFileName, sourceDescription, contentDescription,
                                       positionDescription, xAxisLabel, yAxisLabel, legendLabel, stored));
    });
}

yld_UserXYData& yld_UserData::XYData(const yld_String& name, const yld_Enum::yld_XYSourceTypeEnm& sourceType,
                                     const yld_String& sourceFileName, const yld_String& sourceDescription,
                                     const yld_String& contentDescription, const yld_String& positionDescription,
                                     const yld_String& xAxisLabel, const yld_String& yAxisLabel,
                                     const yld_String& legendLabel)
{
    readCurves();
    // Before there is a curve that would be left half made.
    const kvp_SourceTypeEnm storedType = unMapSourceType(sourceType);
    yld_guard([&] {
        sto_UserXYData stored = m_userData->userXYData().CreateXYDataInContainer(name, 0);
        stored.setSourceType(storedType);
        stored.setSourceFileName(sourceFileName);
        stored.setSourceDescription(sourceDescription);
        stored.setContentDescription(contentDescription);
        stored.setPositionDescription(positionDescription);
        stored.setXAxisLabel(xAxisLabel);
        stored.setYAxisLabel(yAxisLabel);
        stored.setLegendLabel(legendLabel);
        m_curves.insert(name, yld_UserXYData(name, sourceType, sourceFileName, sourceDescription, contentDescription,
                                             positionDescription, xAxisLabel, yAxisLabel, legendLabel, stored));
    });
    return m_curves.get(name);
}

void yld_UserData::requireCurve(const yld_String& name) const
{
    readCurves();
    if (m_curves.isMember(name)) return;
    yld_guard([&] { prg_WIPBase::Error(msg_Format("XYData '%s' is not a member of  the yld.'", name), 0); });
    m_curves.CheckKey(name);
}

yld_UserXYData& yld_UserData::xyDataObjects(const yld_String& name)
{
    requireCurve(name);
    return m_curves.get(name);
}

const yld_UserXYData& yld_UserData::xyDataObjects(const yld_String& name) const
{
    requireCurve(name);
    return m_curves.constGet(name);
}

yld_Repository<yld_String, yld_UserXYData>& yld_UserData::xyDataObjects()
{
    readCurves();
    return m_curves;
}

const yld_Repository<yld_String, yld_UserXYData>& yld_UserData::xyDataObjects() const
{
    readCurves();
    return m_curves;
}
