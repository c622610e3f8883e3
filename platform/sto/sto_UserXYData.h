#ifndef STO_USERXYDATA_H
#define STO_USERXYDATA_H

#include "containers/shr_1DArrayList.h"
#include "containers/shr_String.h"
#include "platform/attribute/kvp_Enum.h"
#include "platform/store/mrp_Container.h"
#include "platform/store/pcl_Persistent.h"

/// A curve that a user has put in a database, with what is told of it. Its points are rows of numbers, most often two.
class sto_UserXYDataContent : public pcl_Class<sto_UserXYDataContent>
{
public:
    static constexpr const char* className = "sto_UserXYData";
    static constexpr unsigned classId = 0x00400003;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("name", self.m_name);
        visit("source type", self.m_sourceType);
        visit("source file name", self.m_sourceFileName);
        visit("source description", self.m_sourceDescription);
        visit("content description", self.m_contentDescription);
        visit("position description", self.m_positionDescription);
        visit("x axis label", self.m_xAxisLabel);
        visit("y axis label", self.m_yAxisLabel);
        visit("legend label", self.m_legendLabel);
        visit("columns", self.m_columns);
        visit("lengths", self.m_lengths);
        visit("values", self.m_values);
    }

    std::string m_name;
    int m_sourceType = 0;
    std::string m_sourceFileName;
    std::string m_sourceDescription;
    std::string m_contentDescription;
    std::string m_positionDescription;
    std::string m_xAxisLabel;
    std::string m_yAxisLabel;
    std::string m_legendLabel;
    int m_columns = 2;         ///< the length of all rows, unless they differ
    pcl_Array<int> m_lengths;  ///< of each row; empty where all are alike
    pcl_Array<float> m_values; ///< row by row
};

/// A handle on a stored curve. Copies stand for the same.
class sto_UserXYData
{
public:
    using DataList = shr_1DArrayList<shr_1DArrayList<float>>;

    /// None.
    sto_UserXYData() = default;
    explicit sto_UserXYData(const lnk_ShortCut<sto_UserXYDataContent>& content) : m_content(content) {}

    bool isValid() const { return m_content.isValid(); }
    const lnk_ShortCut<sto_UserXYDataContent>& shortCut() const { return m_content; }

    shr_String name() const { return text(&sto_UserXYDataContent::m_name); }
    kvp_SourceTypeEnm sourceType() const { return static_cast<kvp_SourceTypeEnm>(m_content.fetch()->m_sourceType); }
    shr_String sourceFileName() const { return text(&sto_UserXYDataContent::m_sourceFileName); }
    shr_String sourceDescription() const { return text(&sto_UserXYDataContent::m_sourceDescription); }
    shr_String contentDescription() const { return text(&sto_UserXYDataContent::m_contentDescription); }
    shr_String positionDescription() const { return text(&sto_UserXYDataContent::m_positionDescription); }
    shr_String xAxisLabel() const { return text(&sto_UserXYDataContent::m_xAxisLabel); }
    shr_String yAxisLabel() const { return text(&sto_UserXYDataContent::m_yAxisLabel); }
    shr_String legendLabel() const { return text(&sto_UserXYDataContent::m_legendLabel); }

    void setSourceType(kvp_SourceTypeEnm type);
    void setSourceFileName(const shr_String& name) { setText(&sto_UserXYDataContent::m_sourceFileName, name); }
    void setSourceDescription(const shr_String& to) { setText(&sto_UserXYDataContent::m_sourceDescription, to); }
    void setContentDescription(const shr_String& to) { setText(&sto_UserXYDataContent::m_contentDescription, to); }
    void setPositionDescription(const shr_String& to) { setText(&sto_UserXYDataContent::m_positionDescription, to); }
    void setXAxisLabel(const shr_String& label) { setText(&sto_UserXYDataContent::m_xAxisLabel, label); }
    void setYAxisLabel(const shr_String& label) { setText(&sto_UserXYDataContent::m_yAxisLabel, label); }
    void setLegendLabel(const shr_String& label) { setText(&sto_UserXYDataContent::m_legendLabel, label); }

    /// One line of what content, position and source are told to be, with commas between; what is empty is left out.
    shr_String description() const;

    /// The number of rows.
    int size() const;
    /// All rows. Reads them anew with each call.
    DataList dataListList() const;
    /// Takes the place of all rows.
    void setDataListList(const DataList& rows);

private:
    shr_String text(std::string sto_UserXYDataContent::*member) const
    {
        return shr_String(((*m_content.fetch()).*member).c_str());
    }
    void setText(std::string sto_UserXYDataContent::*member, const shr_String& to);

    lnk_ShortCut<sto_UserXYDataContent> m_content;
};

/// The curves of the user data, by name.
class sto_UserXYDataContainer
{
public:
    /// One that has no curves and takes none.
    sto_UserXYDataContainer() = default;
    explicit sto_UserXYDataContainer(const mrp_Container<sto_UserXYDataContent>& curves) : m_curves(curves) {}

    bool isEmpty() const { return m_curves.isEmpty(); }
    int size() const { return m_curves.size(); }
    mrp_ContainerIterator<sto_UserXYDataContent> createIterator() const { return m_curves.createIterator(); }
    /// Raises when there is no curve of that name.
    sto_UserXYData operator[](const shr_String& name) const;
    /// Makes a curve without rows. A name that another curve has is taken, and goes on standing for the other.
    /// @param flag  always 0
    sto_UserXYData CreateXYDataInContainer(const shr_String& name, int flag);

private:
    mrp_Container<sto_UserXYDataContent> m_curves;
};

#endif
