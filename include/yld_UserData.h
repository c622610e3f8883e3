#ifndef YLD_USER_DATA_H
#define YLD_USER_DATA_H

#include "containers/shr_CountedHld.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_Repository.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_UserData;
class sto_UserXYData;

/// A curve that a user has put in a database to be plotted: points, with texts that describe them. A handle: copies
/// stand for the same stored curve, each with the points that it has read.
class YLD_API yld_UserXYData
{
public:
    /// No curve: it has no points and takes none.
    yld_UserXYData();
    yld_UserXYData(const yld_String& name, yld_Enum::yld_XYSourceTypeEnm sourceType, const yld_String& sourceFileName,
                   const yld_String& sourceDescription, const yld_String& contentDescription,
                   const yld_String& positionDescription, const yld_String& xAxisLabel, const yld_String& yAxisLabel,
                   const yld_String& legendLabel, const sto_UserXYData& stored);
    yld_UserXYData(const yld_UserXYData&);
    yld_UserXYData& operator=(const yld_UserXYData&);
    ~yld_UserXYData();

    const yld_String& name() const { return m_name; }
    /// Where the points came from.
    yld_Enum::yld_XYSourceTypeEnm sourceType() const { return m_sourceType; }
    const yld_String& sourceFileName() const { return m_sourceFileName; }
    const yld_String& sourceDescription() const { return m_sourceDescription; }
    /// What the points are values of, and where.
    const yld_String& contentDescription() const { return m_contentDescription; }
    const yld_String& positionDescription() const { return m_positionDescription; }
    const yld_String& xAxisLabel() const { return m_xAxisLabel; }
    const yld_String& yAxisLabel() const { return m_yAxisLabel; }
    const yld_String& legendLabel() const { return m_legendLabel; }
    /// One line about the curve: content, position and source, with commas between, without those that are empty. Each
    /// call asks the store.
    yld_String description() const;

    /// The points, a row each: most often X and Y. The first call reads them all; they are not read again, whoever
    /// changes the stored curve. Borrowed until the curve gets other points, is assigned to or destroyed.
    const yld_Sequence<yld_Sequence<float>>& getData() const;
    /// Puts other points in the place of all that were there. The next save keeps them. Rows may differ in length.
    /// Raises what the store says, on a read-only database for one, and changes nothing then.
    void addData(const yld_Sequence<yld_Sequence<float>>& data);

private:
    yld_String m_name;
    yld_Enum::yld_XYSourceTypeEnm m_sourceType = yld_Enum::XY_FROM_KEYBOARD;
    yld_String m_sourceFileName;
    yld_String m_sourceDescription;
    yld_String m_contentDescription;
    yld_String m_positionDescription;
    yld_String m_xAxisLabel;
    yld_String m_yAxisLabel;
    yld_String m_legendLabel;
    shr_CountedHld<sto_UserXYData> m_stored;
    mutable yld_Sequence<yld_Sequence<float>> m_data;
    mutable bool m_dataRead = false;
};

/// What a user has added to a database for plotting: named curves. The first question for one reads the list of all;
/// the points of each are read when they are asked for. Copies share the list until one of them gets a new curve.
class YLD_API yld_UserData
{
public:
    /// Without a database: it has no curves and takes none.
    yld_UserData();
    explicit yld_UserData(const sto_UserData& userData);
    yld_UserData(const yld_UserData&);
    yld_UserData& operator=(const yld_UserData&);
    ~yld_UserData();

    /// A new curve without points; the next save keeps it. If the name is in use, the curve that has it is returned as
    /// it is. The reference is good until another curve is added. Raises "Could not map SourceType Enumeration", and
    /// what the store says.
    yld_UserXYData& XYData(const yld_String& name, const yld_Enum::yld_XYSourceTypeEnm& sourceType,
                           const yld_String& sourceFileName, const yld_String& sourceDescription,
                           const yld_String& contentDescription, const yld_String& positionDescription,
                           const yld_String& xAxisLabel, const yld_String& yAxisLabel, const yld_String& legendLabel);
    yld_UserXYData& UserXYData(const yld_String& name, const yld_Enum::yld_XYSourceTypeEnm& sourceType,
                               const yld_String& sourceFileName, const yld_String& sourceDescription,
                               const yld_String& contentDescription, const yld_String& positionDescription,
                               const yld_String& xAxisLabel, const yld_String& yAxisLabel,
                               const yld_String& legendLabel)
    {
        return XYData(name, sourceType, sourceFileName, sourceDescription, contentDescription, positionDescription,
                      xAxisLabel, yAxisLabel, legendLabel);
    }

    /// The curve of a name. For an unknown one it reports the error "XYData '%s' is not a member of  the yld.'", with
    /// two blanks and the last quote. That raises, unless the reporter returns; then it raises
    /// "Key \"%s\" not found in repository".
    yld_UserXYData& xyDataObjects(const yld_String& name);
    const yld_UserXYData& xyDataObjects(const yld_String& name) const;
    yld_UserXYData& userXYData(const yld_String& name) { return xyDataObjects(name); }
    const yld_UserXYData& userXYData(const yld_String& name) const { return xyDataObjects(name); }
    /// All curves.
    yld_Repository<yld_String, yld_UserXYData>& xyDataObjects();
    const yld_Repository<yld_String, yld_UserXYData>& xyDataObjects() const;
    yld_Repository<yld_String, yld_UserXYData>& userXYData() { return xyDataObjects(); }
    const yld_Repository<yld_String, yld_UserXYData>& userXYData() const { return xyDataObjects(); }

    /// Read the list of stored curves, or the one of a name, without points. The other functions do so by themselves.
    /// Raise what the store says, also for a name that it lacks.
    void ReadUserXYDataCon() const;
    void ReadUserXYData(const yld_String& name) const;

private:
    void readCurves() const;
    void requireCurve(const yld_String& name) const;

    shr_CountedHld<sto_UserData> m_userData;
    mutable yld_Repository<yld_String, yld_UserXYData> m_curves;
    mutable bool m_xyRead = false;
};

#endif
