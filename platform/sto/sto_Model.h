#ifndef STO_MODEL_H
#define STO_MODEL_H

#include "containers/shr_String.h"
#include "platform/attribute/secC_Section.h"
#include "platform/model/mshK_Model.h"
#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Datum.h"
#include "platform/sto/sto_ModelSectorDefinition.h"
#include "platform/sto/sto_Part.h"

class sto_StoStep;
class stpC_Step;

/// A handle on a stored model. What it tells is up to date with every call.
class sto_Model
{
public:
    /// No model.
    sto_Model() = default;
    explicit sto_Model(const lnk_ShortCut<mshK_Model>& reference) : m_reference(reference) {}
    /// A new model with an empty root assembly of the name "Assembly".
    static sto_Model create(const std::shared_ptr<fio_FileBody>& file, const std::string& name);

    bool isValid() const { return m_reference.isValid(); }
    std::shared_ptr<const mshK_Model> model() const { return m_reference.fetch(); }
    std::string name() const { return model()->m_name; }
    std::string modelTitle() const { return model()->m_title; }
    void setModelTitle(const std::string& title);
    std::string globalJob() const { return model()->m_globalJob; }
    void setGlobalJob(const std::string& job);
    bool shellToSolid() const { return model()->m_shellToSolid; }
    void setShellToSolid(bool shellToSolid);
    std::string solverInput() const { return model()->m_solverInput; }
    void setSolverInput(const std::string& text);
    std::string topLevelSolverInput() const { return model()->m_topLevelSolverInput; }
    void setTopLevelSolverInput(const std::string& text);

    /// One sector stands for a whole of cyclic symmetry: the axis goes through two points of three coordinates.
    void DefineCyclicSymmetry(const float* startPoint, const float* endPoint, int sectors);
    /// The names of the constraints that tie neighbouring sectors.
    void setCyclicSymmTieConstraints(const std::vector<std::string>& names);
    /// For tests.
    std::vector<std::string> cyclicSymmTieConstraints() const { return model()->m_sectorTies; }
    bool HasSectorDefinition() const { return sto_ModelSectorDefinition(m_reference).isValid(); }
    sto_ModelSectorDefinition modelSectorDefinition() const { return sto_ModelSectorDefinition(m_reference); }
    /// 2 when there are parts and none of them is in space, else 3.
    int dimension() const;

    int numParts() const { return model()->m_parts.size(); }
    std::string partName(int index) const { return model()->m_parts.key(index); }
    sto_Part part(int index) const { return sto_Part(model()->m_parts.at(index), m_reference); }
    /// Raises when there is no part of that name.
    sto_Part part(const std::string& name) const;
    /// Makes a part without nodes, or gives the one of that name as it is.
    /// @param space, type  codes, see sto_Part
    sto_Part Part(const std::string& name, int space, int type);

    sto_Assembly rootAssembly() const { return sto_Assembly(model()->m_rootAssembly, m_reference); }
    /// Places a part in the root assembly.
    /// @param meshIndex  of the part
    /// @param placement  rotation vector and translation, six numbers
    sto_PartInstance PartInstanceFromPart(const std::string& partName, const std::string& instanceName, int meshIndex,
                                          const float* placement);

    /// The datums, in the order in which they were made.
    int numDatums() const { return model()->m_datums.size(); }
    std::string datumName(int index) const { return model()->m_datums.key(index); }
    sto_Datum datum(int index) const { return sto_Datum(model()->m_datums.at(index)); }
    bool hasDatum(const std::string& name) const { return model()->m_datums.find(name) >= 0; }
    /// Raises when there is no datum of that name.
    sto_Datum datum(const std::string& name) const;
    /// Make a datum system, fixed or following nodes; one of a name that is taken is changed into it. Nodes are given
    /// by mesh index and label; their places when the system is made give its axes. Raise for a node that is not there.
    sto_DatumCsys DatumCsys(const std::string& name, const geo_Vector& x, const geo_Vector& y, const geo_Vector& z,
                            axs_CsysTypeEnm type, const geo_Vector& origin);
    sto_DatumCsys DatumCsys3Nodes(const std::string& name, const int meshIndices[3], const int labels[3],
                                  axs_CsysTypeEnm type);
    sto_DatumCsys DatumCsys3CircNodes(const std::string& name, const int meshIndices[3], const int labels[3],
                                      axs_CsysTypeEnm type);
    sto_DatumCsys DatumCsys6dofNode(const std::string& name, int meshIndex, int label, axs_CsysTypeEnm type);
    /// Files a finished system under a name.
    sto_DatumCsys file(const std::string& name, axs_DatumCsys datum);

    /// The sections, by name. The first two are for tests.
    int numSections() const { return model()->m_sections.size(); }
    bool hasSection(const std::string& name) const { return model()->m_sections.find(name) >= 0; }
    /// A null reference where there is none of that name.
    lnk_ShortCut<secC_Section> section(const std::string& name) const { return model()->m_sections.get(name); }
    /// Makes a section, or gives the one of that name as it is.
    lnk_ShortCut<secC_Section> Section(const std::string& name, int subType);

    /// The model side of a step. Raises when there is no step of that name; the initial step is there always.
    sto_StoStep step(const shr_String& name) const;
    /// A new step with its analysis settings, which tell procedure, period and flags; after the one that it follows,
    /// or at the end without one. A name that another step has is taken, and goes on standing for the other.
    /// @param position  how many steps the caller has; the number that the step gets is the model's own
    sto_StoStep Step(int position, const shr_String& name, const shr_String& description, const stpC_Step& settings,
                     const shr_String& previous) const;
    /// The same for a step in time without settings.
    /// @param procedure  a procedure number, see sto_Procedure; it decides the domain
    /// @param period     the time that the step lasts
    /// @param flag       1: geometric nonlinearity may be on
    sto_StoStep GeneralStep(int position, const shr_String& name, const shr_String& description, int procedure,
                            double period, const shr_String& previous, int flag) const;
    /// The same for a perturbation about the state that the step before has reached.
    sto_StoStep PerturbationStep(int position, const shr_String& name, const shr_String& description, int procedure,
                                 double period, const shr_String& previous) const;

    const lnk_ShortCut<mshK_Model>& shortCut() const { return m_reference; }
    const std::shared_ptr<fio_FileBody>& modelFile() const { return m_reference.file(); }

private:
    // Changes one value of the stored model.
    template<class Value> void change(Value mshK_Model::*member, Value value)
    {
        m_reference.edit([&](mshK_Model& changed) { changed.*member = std::move(value); });
    }
    geo_Vector nodePosition(int meshIndex, int label) const;
    axs_DatumCsys followingNodes(int follows, const int meshIndices[], const int labels[], axs_CsysTypeEnm type) const;

    lnk_ShortCut<mshK_Model> m_reference;
};

/// A number for a new mesh that no other of the model has had.
int sto_newMeshIndex(const lnk_ShortCut<mshK_Model>& model);

#endif
