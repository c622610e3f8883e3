#ifndef YLD_HISTORY_POINT_H
#define YLD_HISTORY_POINT_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_Node.h"
#include "yld_SectionCategory.h"
#include "yld_String.h"

class sto_Assembly;
class sto_History;
class yld_Assembly;
class yld_Element;
class yld_Instance;
class yld_Set;

/// The place at which a curve was taken: a node, an integration point, a face, an element, a region, an instance, the
/// assembly, or nothing but a name. Which constructor makes it decides what position() is, as told with each. A value;
/// copies share what is large.
class YLD_API yld_HistoryPoint
{
public:
    /// Nowhere: UNDEFINED_POSITION.
    yld_HistoryPoint();
    /// NODAL.
    explicit yld_HistoryPoint(const yld_Node& node);
    /// INTEGRATION_POINT for an ip of 1 or more, else WHOLE_ELEMENT.
    explicit yld_HistoryPoint(const yld_Element& element, int ipNumber = 0);
    /// ELEMENT_NODAL.
    yld_HistoryPoint(const yld_Element& element, const yld_Node& node);
    /// INTEGRATION_POINT, whatever the ip.
    yld_HistoryPoint(const yld_Element& element, int ipNumber, const yld_SectionPoint& sectionPoint);
    /// ELEMENT_FACE_INTEGRATION_POINT for an ip of 1 or more, else ELEMENT_FACE.
    yld_HistoryPoint(const yld_Element& element, yld_Enum::yld_ElementFaceEnum face, int ipNumber = 0);
    /// WHOLE_REGION.
    explicit yld_HistoryPoint(const yld_Set& region);
    /// A place that has no more than a name: UNDEFINED_POSITION.
    explicit yld_HistoryPoint(const yld_String& name);
    /// WHOLE_PART_INSTANCE.
    explicit yld_HistoryPoint(const yld_Instance& instance);
    /// WHOLE_MODEL.
    explicit yld_HistoryPoint(const yld_Assembly& assembly);
    /// Where a stored curve was taken. Warns "Unknown History Output position." for a position that is not known; the
    /// point then has the curve's description and label as its name.
    yld_HistoryPoint(const sto_History& history, const sto_Assembly& assembly);
    yld_HistoryPoint(const yld_HistoryPoint&);
    yld_HistoryPoint& operator=(const yld_HistoryPoint&);
    ~yld_HistoryPoint();

    /// Warns "Undefined position for historyPoint." for UNDEFINED_POSITION.
    yld_Enum::yld_ResultPositionEnum position() const;
    /// The same without a warning.
    yld_Enum::yld_ResultPositionEnum storedPosition() const { return m_position; }
    const yld_Node& node() const { return m_node; }
    const yld_Element& element() const;
    /// Counted from 1; 0 for none.
    int ipNumber() const { return m_ipNumber; }
    yld_Enum::yld_ElementFaceEnum face() const { return m_face; }
    /// Its number is 0 for none.
    const yld_SectionPoint& sectionPoint() const { return m_sectionPoint; }
    /// Each is empty where the place is none of the kind.
    const yld_Set& region() const;
    const yld_Instance& instance() const;
    const yld_Assembly& assembly() const;
    const yld_String& name() const { return m_name; }
    void setInstance(const yld_Instance& instance);

    /// Equal are points that agree in node, element, integration point, face, position, section point number, in the
    /// names of region and assembly, and in their own name; and any two WHOLE_PART_INSTANCE points of instances of one
    /// name.
    bool operator==(const yld_HistoryPoint& other) const;
    bool operator!=(const yld_HistoryPoint& other) const { return !(*this == other); }

    /// For people: the name, or "Output at" and all that is known of the place.
    yld_String longText() const;
    /// The key of a region at this place, for example "Node part-1.17".
    yld_String shortText() const;

private:
    yld_Node m_node;
    shr_COW<yld_Element> m_element; // these are null until there is something to hold
    int m_ipNumber = 0;
    yld_Enum::yld_ElementFaceEnum m_face = yld_Enum::FACE_UNKNOWN;
    yld_Enum::yld_ResultPositionEnum m_position = yld_Enum::UNDEFINED_POSITION;
    yld_SectionPoint m_sectionPoint;
    shr_COW<yld_Set> m_region;
    shr_COW<yld_Instance> m_instance;
    shr_COW<yld_Assembly> m_assembly;
    yld_String m_name;
};

#endif
