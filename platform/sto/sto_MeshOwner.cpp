#include "platform/sto/sto_MeshOwner.h"

#include "platform/model/mshK_Part.h"
#include "platform/model/mshK_PartInstance.h"
#include "platform/sto/sto_Model.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_Format.h"

void sto_requireRegion(const setC_Region& region, const std::shared_ptr<fio_FileBody>& file)
{
    if (region.isNull()) throw exc_TextException("The region of an assignment is empty.");
    if (region.file() != file) {
        throw exc_TextException(
            msg_Format("Set \"%s\" belongs to another database.", region.ConstSet()->m_label.c_str()));
    }
}

dfrC_DatumRef sto_datumRef(const sto_DatumCsys& datum, const std::shared_ptr<fio_FileBody>& file)
{
    if (!datum.isValid()) return {};
    if (datum.shortCut().file() != file) {
        throw exc_TextException(
            msg_Format("Coordinate system \"%s\" belongs to another database.", datum.name().c_str()));
    }
    return dfrC_DatumRef(datum.GetDatumId(), datum.shortCut());
}

namespace {

prtC_MaterialOrientation orientation(const setC_Region& region, const std::string& datumName,
                                     const sto_DatumCsys& datum, prtC_AxisEnm axis, float angle,
                                     const std::shared_ptr<fio_FileBody>& file)
{
    sto_requireRegion(region, file);
    prtC_MaterialOrientation made;
    made.m_region = region;
    made.m_name = datumName;
    made.m_datum = sto_datumRef(datum, file);
    made.m_axis = static_cast<int>(axis);
    made.m_angle = angle;
    return made;
}

} // namespace

template<class Body>
void sto_MeshOwner<Body>::AssignSection(const setC_Region& region, const std::string& sectionName, double offset) const
{
    sto_requireRegion(region, modelFile());
    m_reference.edit([&](Body& changed) {
        changed.AssignSection(modelFile(), prtC_SectionAssignment(region, sectionName, offset));
    });
}

template<class Body>
void sto_MeshOwner<Body>::assignMaterialOrientation(const setC_Region& region, const std::string& datumName,
                                                    const sto_DatumCsys& datum, prtC_AxisEnm axis, float angle,
                                                    prtC_StackDirectionEnm stackDirection) const
{
    prtC_MaterialOrientation made = orientation(region, datumName, datum, axis, angle, modelFile());
    made.m_stackDirection = static_cast<int>(stackDirection);
    m_reference.edit(
        [&](Body& changed) { prtC_append(modelFile(), changed.m_assigned.m_materials, datumName, std::move(made)); });
}

template<class Body>
void sto_MeshOwner<Body>::assignRebarOrientation(const setC_Region& region, const std::string& datumName,
                                                 const sto_DatumCsys& datum, prtC_AxisEnm axis, float angle) const
{
    prtC_MaterialOrientation made = orientation(region, datumName, datum, axis, angle, modelFile());
    m_reference.edit(
        [&](Body& changed) { prtC_append(modelFile(), changed.m_assigned.m_rebars, datumName, std::move(made)); });
}

template<class Body>
void sto_MeshOwner<Body>::assignBeamOrientation(const setC_Region& region, prtC_OrientationMethodEnm method,
                                                const geo_Vector& vector) const
{
    sto_requireRegion(region, modelFile());
    prtC_BeamOrientation made;
    made.m_region = region;
    made.m_method = static_cast<int>(method);
    made.m_vector = {vector.x, vector.y, vector.z};
    m_reference.edit([&](Body& changed) {
        prtC_append(modelFile(), changed.m_assigned.m_beams, region.ConstSet()->m_label, std::move(made));
    });
}

template<class Body>
sto_DatumCsys sto_MeshOwner<Body>::DatumCsys(const std::string& name, const float points[9], axs_CsysTypeEnm type) const
{
    sto_Model model(m_model);
    if (model.hasDatum(name)) return model.datum(name).CvtDatumCsys();
    const auto point = [points](int i) { return geo_Vector(points[3 * i], points[3 * i + 1], points[3 * i + 2]); };
    axs_DatumCsys made;
    made.setAxesThrough(point(0), point(1), point(2));
    made.m_systemType = static_cast<int>(type);
    return model.file(name, std::move(made));
}

template<class Body> void sto_MeshOwner<Body>::setSolverInput(const std::string& text) const
{
    m_reference.edit([&](Body& changed) { changed.m_assigned.m_solverInput = text; });
}

template class sto_MeshOwner<mshK_Part>;
template class sto_MeshOwner<mshK_PartInstance>;
