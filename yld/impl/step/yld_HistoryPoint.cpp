#include "yld_HistoryPoint.h"

#include "platform/model/setC_Set.h"
#include "platform/result/fld_OutputPosition.h"
#include "platform/sto/sto_History.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/step/yld_HistoryPlaces.h"
#include "yld_Assembly.h"
#include "yld_Set.h"

#include <string>

namespace {

const yld_SectionPoint& noSectionPoint()
{
    // A thread's own: the counts of shared texts are not atomic.
    static thread_local const yld_SectionPoint none(0, yld_String());
    return none;
}

template<class T> const T& heldOrNone(const shr_COW<T>& held)
{
    static thread_local const T none;
    return held.IsValid() ? *held : none;
}

} // namespace

yld_HistoryPoint::yld_HistoryPoint() : m_sectionPoint(noSectionPoint()) {}

yld_HistoryPoint::yld_HistoryPoint(const yld_Node& node) : yld_HistoryPoint()
{
    m_node = node;
    m_position = yld_Enum::NODAL;
}

yld_HistoryPoint::yld_HistoryPoint(const yld_Element& element, int ipNumber) : yld_HistoryPoint()
{
    m_element = shr_COW<yld_Element>(element);
    m_ipNumber = ipNumber;
    m_position = ipNumber >= 1 ? yld_Enum::INTEGRATION_POINT : yld_Enum::WHOLE_ELEMENT;
}

yld_HistoryPoint::yld_HistoryPoint(const yld_Element& element, const yld_Node& node) : yld_HistoryPoint()
{
    m_node = node;
    m_element = shr_COW<yld_Element>(element);
    m_position = yld_Enum::ELEMENT_NODAL;
}

yld_HistoryPoint::yld_HistoryPoint(const yld_Element& element, int ipNumber, const yld_SectionPoint& sectionPoint)
    : yld_HistoryPoint(element, ipNumber)
{
    m_sectionPoint = sectionPoint;
    m_position = yld_Enum::INTEGRATION_POINT;
}

yld_HistoryPoint::yld_HistoryPoint(const yld_Element& element, yld_Enum::yld_ElementFaceEnum face, int ipNumber)
    : yld_HistoryPoint(element, ipNumber)
{
    m_face = face;
    m_position = ipNumber >= 1 ? yld_Enum::ELEMENT_FACE_INTEGRATION_POINT : yld_Enum::ELEMENT_FACE;
}

yld_HistoryPoint::yld_HistoryPoint(const yld_Set& region) : yld_HistoryPoint()
{
    m_region = shr_COW<yld_Set>(region);
    m_position = yld_Enum::WHOLE_REGION;
}

yld_HistoryPoint::yld_HistoryPoint(const yld_String& name) : yld_HistoryPoint() { m_name = name; }

yld_HistoryPoint::yld_HistoryPoint(const yld_Instance& instance) : yld_HistoryPoint()
{
    setInstance(instance);
    m_position = yld_Enum::WHOLE_PART_INSTANCE;
}

yld_HistoryPoint::yld_HistoryPoint(const yld_Assembly& assembly) : yld_HistoryPoint()
{
    m_assembly = shr_COW<yld_Assembly>(assembly);
    m_position = yld_Enum::WHOLE_MODEL;
}

yld_HistoryPoint::yld_HistoryPoint(const sto_History& history, const sto_Assembly& assembly)
    : yld_HistoryPoint(yld_HistoryPlaces(assembly).pointOf(history))
{
}

yld_HistoryPoint::yld_HistoryPoint(const yld_HistoryPoint&) = default;
yld_HistoryPoint& yld_HistoryPoint::operator=(const yld_HistoryPoint&) = default;
yld_HistoryPoint::~yld_HistoryPoint() = default;

yld_Enum::yld_ResultPositionEnum yld_HistoryPoint::position() const
{
    if (m_position == yld_Enum::UNDEFINED_POSITION) {
        prg_WIPBase::Warning(msg_Format("Undefined position for historyPoint."));
    }
    return m_position;
}

const yld_Element& yld_HistoryPoint::element() const { return heldOrNone(m_element); }
const yld_Set& yld_HistoryPoint::region() const { return heldOrNone(m_region); }
const yld_Instance& yld_HistoryPoint::instance() const { return heldOrNone(m_instance); }
const yld_Assembly& yld_HistoryPoint::assembly() const { return heldOrNone(m_assembly); }

void yld_HistoryPoint::setInstance(const yld_Instance& instance) { m_instance = shr_COW<yld_Instance>(instance); }

bool yld_HistoryPoint::operator==(const yld_HistoryPoint& other) const
{
    if (m_position == yld_Enum::WHOLE_PART_INSTANCE && other.m_position == yld_Enum::WHOLE_PART_INSTANCE &&
        instance().name() == other.instance().name()) {
        return true;
    }
    return m_position == other.m_position && m_node == other.m_node && element() == other.element() &&
           m_ipNumber == other.m_ipNumber && m_face == other.m_face && assembly().name() == other.assembly().name() &&
           m_name == other.m_name && m_sectionPoint.number() == other.m_sectionPoint.number() &&
           region().name() == other.region().name();
}

yld_String yld_HistoryPoint::longText() const
{
    if (!m_name.empty()) return m_name;
    const std::string start = "Output at";
    std::string text = start;
    const auto addName = [&text](const char* what, const yld_String& name) {
        if (!name.empty()) text += what + std::string(name.cStr());
    };
    const auto addNumber = [&text](const char* what, int number) { text += what + std::to_string(number); };
    addName(" assembly ", assembly().name());
    addName(" instance ", instance().name());
    if (element().label() >= 0) {
        addNumber(" element ", element().label());
        if (m_face != yld_Enum::FACE_UNKNOWN) addNumber(" face ", m_face);
        if (m_ipNumber > 0) addNumber(" integration point ", m_ipNumber);
        if (m_sectionPoint.number() > 0) addNumber(" section point ", m_sectionPoint.number());
    } else if (m_node.label() >= 0) {
        addNumber(" node ", m_node.label());
    }
    addName(" region ", region().name());
    if (text == start) text += " unknown location.";
    return yld_String(text.c_str());
}

namespace {

const char* wordOf(const yld_Set& region)
{
    // Of the stored set, which tells its type without complaint.
    switch (region.set().isValid() ? yld_guard([&region] { return region.set().setType(); }) : -1) {
    case setC_Set::nodeSet:
        return "NodeSet ";
    case setC_Set::elementSet:
        return "ElementSet ";
    case setC_Set::surface:
        return "Surface ";
    default:
        return "Region ";
    }
}

} // namespace

yld_String yld_HistoryPoint::shortText() const
{
    const std::string instanceName = instance().name().cStr();
    const auto scoped = [&instanceName](int label) { return instanceName + "." + std::to_string(label); };
    const auto wordFor = [&](char what) -> std::string {
        switch (what) {
        case 'n':
            return scoped(m_node.label());
        case 'e':
            return scoped(element().label());
        case 'f':
            return std::to_string(static_cast<int>(m_face));
        case 'p':
            return std::to_string(m_ipNumber);
        case 'r':
            return wordOf(region()) + std::string(region().name().cStr());
        case 'i':
            return instanceName;
        default:
            return assembly().name().cStr();
        }
    };
    const fld_OutputPosition* place = fld_OutputPosition::shownBy(m_position);
    std::string text;
    for (const char* at = place ? place->curveText : fld_OutputPosition().curveText; *at; ++at) {
        if (*at == '%') text += wordFor(*++at);
        else text += *at;
    }
    if (m_sectionPoint.number() > 0) text += " Section Point " + std::to_string(m_sectionPoint.number());
    return yld_String(text.c_str());
}
