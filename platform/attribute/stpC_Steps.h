#ifndef STPC_STEPS_H
#define STPC_STEPS_H

#include "platform/attribute/stpC_MassScaling.h"
#include "platform/attribute/stpC_NodalDofs.h"
#include "platform/attribute/stpC_Step.h"
#include "platform/attribute/stpC_WithArguments.h"
#include "platform/model/setC_Region.h"
#include "platform/store/mrp_Container.h"

#include <vector>

/// An analysis step that is a list of arguments.
template<class Self, class... Arguments>
class stpC_StepOf : public stpC_WithArguments<Self, Arguments...>, public stpC_Step
{
public:
    using stpC_WithArguments<Self, Arguments...>::stpC_WithArguments;
    const pcl_Persistent& persistent() const override { return *this; }
};

// Each class lists the types of its arguments in the order in which clients give them. Where the type does not tell
// what an argument means, and no comment does, only the solver knows. Files keep arguments by place in this list:
// append only.

class stpC_StaticStep
    : public stpC_StepOf<stpC_StaticStep, double /* time period */, val_PrimEnum<stpC_Step::NlgeomEnm>, int, double,
                         double, double, val_PrimEnum<stpC_Step::StabilizationEnm>, double, bool,
                         val_PrimEnum<stpC_Step::TimeIncrementationMethodEnm>, val_PrimEnum<stpC_Step::AmplitudeEnm>>
{
public:
    static constexpr const char* className = "stpC_StaticStep";
    static constexpr unsigned classId = 0x00200102;
    static constexpr int classVersion = 1;
    using stpC_StepOf::stpC_StepOf;

    int procedure() const override;
    double timePeriod() const override { return argument<1>(); }
    bool isNlgeom() const override;
};

class stpC_StaticLinearPerturbationStep
    : public stpC_StepOf<stpC_StaticLinearPerturbationStep, val_PrimEnum<stpC_Step::MatrixSolverEnm>>
{
public:
    static constexpr const char* className = "stpC_StaticLinearPerturbationStep";
    static constexpr unsigned classId = 0x00200103;
    static constexpr int classVersion = 1;
    using stpC_StepOf::stpC_StepOf;

    int procedure() const override;
    bool isPerturbation() const override { return true; }
};

class stpC_HeatTransferStep
    : public stpC_StepOf<stpC_HeatTransferStep, val_PrimEnum<stpC_Step::ResponseEnm>,
                         val_PrimEnum<stpC_Step::AmplitudeEnm>, val_PrimEnum<stpC_Step::TimeIncrementationMethodEnm>,
                         double, int, double, double, double, double, double, val_PrimEnum<stpC_Step::ExtrapolationEnm>,
                         val_PrimEnum<stpC_Step::MatrixSolverEnm>>
{
public:
    static constexpr const char* className = "stpC_HeatTransferStep";
    static constexpr unsigned classId = 0x00200104;
    static constexpr int classVersion = 1;
    using stpC_StepOf::stpC_StepOf;

    int procedure() const override;
};

class stpC_StaticRiksStep
    : public stpC_StepOf<stpC_StaticRiksStep, val_PrimEnum<stpC_Step::NlgeomEnm>, bool, double, bool, double, int,
                         setC_Region, val_PrimEnum<stpC_Step::TimeIncrementationMethodEnm>, int, double, double, double,
                         double, val_PrimEnum<stpC_Step::MatrixSolverEnm>, val_PrimEnum<stpC_Step::ExtrapolationEnm>,
                         shr_String, bool, bool, int, int, bool>
{
public:
    static constexpr const char* className = "stpC_StaticRiksStep";
    static constexpr unsigned classId = 0x00200105;
    static constexpr int classVersion = 1;
    using stpC_StepOf::stpC_StepOf;

    int procedure() const override;
    bool isNlgeom() const override;
};

class stpC_ExplicitDynamicsStep
    : public stpC_StepOf<stpC_ExplicitDynamicsStep, double /* time period */, val_PrimEnum<stpC_Step::NlgeomEnm>, bool,
                         val_PrimEnum<stpC_Step::TimeIncrementationMethodEnm>, stpC_Optional, double, double, double,
                         stpC_Optional, mrp_Container<stpC_MassScaling>>
{
public:
    static constexpr const char* className = "stpC_ExplicitDynamicsStep";
    static constexpr unsigned classId = 0x00200107;
    static constexpr int classVersion = 1;
    using stpC_StepOf::stpC_StepOf;

    int procedure() const override;
    double timePeriod() const override { return argument<1>(); }
    bool isNlgeom() const override;
};

/// Makes a substructure: the whole model becomes one element, which keeps some degrees of freedom and eigenmodes; the
/// others are eliminated.
class stpC_SubstructureGenerateStep : public pcl_Class<stpC_SubstructureGenerateStep>, public stpC_Step
{
public:
    static constexpr const char* className = "stpC_SubstructureGenerateStep";
    static constexpr unsigned classId = 0x00200109;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit)
    {
        visit("retained nodal dofs", self.m_retainedNodalDofs);
        visit("eliminated nodal dofs", self.m_eliminatedNodalDofs);
        visit("retained eigenmodes", self.m_retainedEigenModes);
    }

    int procedure() const override;
    bool isPerturbation() const override { return true; }
    const pcl_Persistent& persistent() const override { return *this; }

    mrp_Container<stpC_NodalDofs> m_retainedNodalDofs;
    mrp_Container<stpC_NodalDofs> m_eliminatedNodalDofs;
    std::vector<int> m_retainedEigenModes; ///< mode numbers, counted from 1
};

#endif
