#ifndef YLD_FRAME_H
#define YLD_FRAME_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_FieldOutput.h"
#include "yld_FieldOutputRepository.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_Assembly;
class sto_Frame;
class yld_Step;

/// A named load of a step that has several; the default one has an empty name and means none.
class YLD_API yld_LoadCase
{
public:
    yld_LoadCase() = default;
    explicit yld_LoadCase(const yld_String& name) : m_name(name) {}

    const yld_String& name() const { return m_name; }
    bool operator==(const yld_LoadCase& other) const { return m_name.compare(other.m_name) == 0; }
    bool operator!=(const yld_LoadCase& other) const { return !(*this == other); }

private:
    yld_String m_name;
};

/// One snapshot of a step: an increment in time, a mode or a load case, with its fields. A copy shares what has been
/// read. yld_Step::Frame() makes frames; yld_Step::frames() gives those that are there.
class YLD_API yld_Frame
{
public:
    yld_Frame();
    yld_Frame(int index, const shr_COW<sto_Frame>& frame, const shr_ArrayCOW<sto_Assembly>& assembly,
              yld_Enum::yld_DomainEnum domain, const yld_Step& step, const yld_LoadCase& loadCase);
    yld_Frame(const yld_Frame&);
    yld_Frame& operator=(const yld_Frame&);
    ~yld_Frame();

    /// The place in the step, counted from 0; -1 for an empty frame.
    int frameIndex() const { return m_frameIndex; }
    /// The number that the analysis gave the increment; 0 for an empty frame.
    int incrementNumber() const;
    int frameId() const { return incrementNumber(); }
    const yld_LoadCase& loadCase() const { return m_loadCase; }
    /// The mode of a frame of domain MODAL; 0 in any other domain.
    int mode() const;
    /// Time, frequency or another measure of the step; kept in single precision.
    double frameValue() const;
    /// The frequency of a frame of domain MODAL or FREQUENCY; 0 in any other domain.
    double frequency() const;
    yld_String description() const;
    /// What the frames of the step are counted along: time, frequency, modes and so on.
    yld_Enum::yld_DomainEnum domain() const { return m_domain; }

    /// A new scalar, vector or tensor field, to be filled with addData() or addBulkData(); the database gets it with
    /// its first values. The reference is good until another field is added to this frame.
    /// @param componentLabels  one a component; empty for the default ones, the name followed by 1, 2, 3 or 11, 22, ...
    /// @param validInvariants  those that mean something; MISES brings PRESS with it
    /// Raises "A field named '%s' already exists.", "Invalid invariant", "The number of component labels should be %s".
    yld_FieldOutput& FieldOutput(
        const yld_String& name, const yld_String& description, const yld_Enum::yld_DataTypeEnum& type,
        const yld_Sequence<yld_String>& componentLabels = yld_Sequence<yld_String>(),
        const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants = yld_Sequence<yld_Enum::yld_InvariantEnum>());
    /// New fields whose values have any number of components: vectors of a size, matrices of rows and columns, of which
    /// symmetric ones keep size * (size + 1) / 2 components. Raise "A field named '%s' already exists.".
    yld_FieldOutput& VectorOutput(const yld_String& name, const yld_String& description, int size);
    yld_FieldOutput& MatrixOutput(const yld_String& name, const yld_String& description, int rows, int cols);
    yld_FieldOutput& SymmetricMatrixOutput(const yld_String& name, const yld_String& description, int size);
    /// A copy of a field of another frame, step or database, with its values; the next save keeps it. The copy of an
    /// orphan takes no more data in this session, as the orphan itself.
    /// @param name         of the copy; empty for name and description of the source
    /// Raises "A field named '%s' already exists.", and what yld_FieldOutput::addData(field) raises.
    yld_FieldOutput& FieldOutput(yld_FieldOutput& source, const yld_String& name = yld_String(),
                                 const yld_String& description = yld_String());

    yld_FieldOutputRepository& fieldOutputs() { return m_fieldOutputs; }
    const yld_FieldOutputRepository& fieldOutputs() const { return m_fieldOutputs; }
    /// Looks for fields that were written since all were last read; tells whether there were any.
    bool update();

    /// Complex results of some procedures are two frames side by side, the real half first. This gives the other half;
    /// an empty frame where there is none.
    yld_Frame associatedFrame() const;
    /// Whether this is the imaginary half.
    bool isImaginary() const;
    /// The cyclic symmetry mode, or -1.
    int cyclicModeNumber() const;
    bool hasAssociatedFrame() const;

private:
    friend class yld_SequenceFrame;

    yld_Frame(int index, const shr_COW<sto_Frame>& frame, const shr_ArrayCOW<sto_Assembly>& assembly,
              yld_Enum::yld_DomainEnum domain, const shr_CountedHld<yld_Step>& step, const yld_LoadCase& loadCase);
    void bindFields();
    yld_FieldOutput& addField(const yld_String& name, const yld_String& description, yld_Enum::yld_DataTypeEnum type,
                              const yld_Sequence<yld_String>& componentLabels,
                              const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants, int rows, int cols,
                              yld_Enum::yld_DataSubtypeEnum subtype);

    int m_frameIndex = -1;
    yld_Enum::yld_DomainEnum m_domain = yld_Enum::TIME;
    shr_COW<sto_Frame> m_frame;
    shr_ArrayCOW<sto_Assembly> m_assembly;
    yld_FieldOutputRepository m_fieldOutputs;
    shr_CountedHld<yld_Step> m_step;
    yld_LoadCase m_loadCase;
};

#endif
