#ifndef STO_STEPCONTAINER_H
#define STO_STEPCONTAINER_H

#include "platform/model/mshK_Step.h"
#include "platform/result/fld_Step.h"
#include "platform/sto/sto_Step.h"

/// The result side of the steps, in the order of the analysis.
class sto_StepContainer
{
public:
    sto_StepContainer() = default;
    explicit sto_StepContainer(const mrp_Container<fld_Step>& steps) : m_steps(steps) {}

    int size() const { return m_steps.size(); }
    bool isMember(const shr_String& name) const { return m_steps.find(name.cStr()) >= 0; }
    shr_String key(int position) const { return m_steps.key(position).c_str(); }
    sto_Step get(int position) const { return sto_Step(m_steps.at(position)); }
    /// Raises when there is no step of that name.
    sto_Step get(const shr_String& name) const;

    /// Gives back the memory of the step's frames and their fields, as far as the disk has them; a name that is not
    /// there changes nothing.
    void release(const shr_String& name);
    /// Sends the values that objects still hold on their way: many go to disk now, few with the save, which spares a
    /// transaction of their own.
    void flush();

    /// The place after the step of that name, which is also where a step without a known previous one goes: the end.
    /// After the initial step, which need not be in the list, is the first place of all others.
    template<class T> static int placeBehind(const mrp_Container<T>& steps, const char* previous)
    {
        const int found = *previous == '\0' ? -1 : steps.find(previous);
        if (found >= 0) return found + 1;
        return std::string(previous) == mshK_Step::InitialStepName() ? 0 : steps.size();
    }

private:
    mrp_Container<fld_Step> m_steps;
};

#endif
