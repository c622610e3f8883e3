#ifndef STO_MODEL_H
#define STO_MODEL_H

#include "platform/model/mshK_Model.h"
#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_Part.h"
#include "platform/text/shr_String.h"

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
    /// 2 when there are parts and none of them is in space, else 3.
    int dimension() const;

    int numParts() const { return model()->m_parts.size(); }
    std::string partName(int index) const { return model()->m_parts.key(index); }
    sto_Part part(int index) const { return sto_Part(model()->m_parts.at(index)); }
    bool hasPart(const std::string& name) const { return model()->m_parts.find(name) >= 0; }
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

    /// The model side of a step. Raises when there is no step of that name; the initial step is there always.
    sto_StoStep step(const shr_String& name) const;
    /// A new step with its analysis settings, which tell procedure, period and flags; behind the one that it follows,
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
    lnk_ShortCut<mshK_Model> m_reference;
};

/// A number for a new mesh that no other of the model has had.
int sto_newMeshIndex(const lnk_ShortCut<mshK_Model>& model);

#endif
