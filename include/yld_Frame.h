#ifndef YLD_FRAME_H
#define YLD_FRAME_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_FieldOutput.h"
#include "yld_Repository.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_Assembly;
class sto_FieldDescription;
class sto_FieldFrame;
class sto_FieldStep;
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

/// The fields of one frame, by name. A field is looked up in the store when it is first asked for; its
/// values stay unread.
class YLD_API yld_FieldOutputRepository
{
public:
    yld_FieldOutputRepository();
    yld_FieldOutputRepository(const sto_FieldFrame& fieldFrame, const shr_ArrayCOW<sto_Assembly>& assembly,
                              const sto_FieldStep& fieldStep, int frameNumber);
    yld_FieldOutputRepository(const yld_FieldOutputRepository&);
    yld_FieldOutputRepository& operator=(const yld_FieldOutputRepository&);
    ~yld_FieldOutputRepository();

    /// Reads the descriptions of all fields once.
    int size() const;
    bool isMember(const yld_String& name) const;
    /// The field; an empty one for a name that the frame lacks. Holds until the repository is next changed.
    yld_FieldOutput& get(const yld_String& name);
    const yld_FieldOutput& constGet(const yld_String& name) const;
    const yld_FieldOutput& get(const yld_String& name) const { return constGet(name); }
    const yld_FieldOutput& operator[](const yld_String& name) const { return constGet(name); }
    /// The names, in the store's order, without reading a description.
    yld_Sequence<yld_String> getFieldOutputNames() const;

    /// Enters a field made by the caller; a name that is present stays.
    void insert(const yld_FieldOutput& field);
    /// Looks for fields that came in since the last full read; tells whether there were any.
    bool update();

    bool isFullyRead() const { return m_fullyRead; }
    bool hasStore() const;
    const shr_COW<sto_FieldFrame>& fieldFrame() const { return m_fieldFrame; }
    const shr_COW<sto_FieldStep>& fieldStep() const { return m_fieldStep; }

private:
    bool readOne(const yld_String& name) const;
    bool readAll() const;
    yld_Sequence<yld_String> readNames() const;
    shr_ArrayCOW<sto_Assembly> assemblyOf(const sto_FieldDescription& description) const;

    shr_COW<sto_FieldFrame> m_fieldFrame;
    shr_ArrayCOW<sto_Assembly> m_assembly;
    using Fields = yld_Repository<yld_String, yld_FieldOutput>;
    // Behind a handle: a map that is assigned an empty one holds on to what it had.
    mutable shr_COW<Fields> m_fields{Fields()};
    mutable yld_FieldOutput m_emptyField;
    shr_COW<sto_FieldStep> m_fieldStep;
    int m_frameNumber = -1;
    mutable bool m_fullyRead = false;
};

/// One snapshot of a step: an increment in time, a mode or a load case, with its fields.
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
    yld_Enum::yld_DomainEnum domain() const { return m_domain; }

    /// A new scalar, vector or tensor field.
    /// @param componentLabels  empty for the default ones, which begin with the name
    /// Raises "A field named '%s' already exists.", "Invalid invariant", "The number of component labels should be %s".
    yld_FieldOutput& FieldOutput(
        const yld_String& name, const yld_String& description, const yld_Enum::yld_DataTypeEnum& type,
        const yld_Sequence<yld_String>& componentLabels = yld_Sequence<yld_String>(),
        const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants = yld_Sequence<yld_Enum::yld_InvariantEnum>());
    yld_FieldOutput& VectorOutput(const yld_String& name, const yld_String& description, int size);
    yld_FieldOutput& MatrixOutput(const yld_String& name, const yld_String& description, int rows, int cols);
    yld_FieldOutput& SymmetricMatrixOutput(const yld_String& name, const yld_String& description, int size);
    /// A copy of a field of another frame, step or database, with its values and with its orphan flag: the copy of an
    /// orphan stands in this frame and is kept, and takes no more data.
    /// @param name  with its description; an empty name stands for the source's name and description
    /// Raises "A field named '%s' already exists.", and what yld_FieldOutput::addData(field) raises.
    yld_FieldOutput& FieldOutput(yld_FieldOutput& source, const yld_String& name = yld_String(),
                                 const yld_String& description = yld_String());

    yld_FieldOutputRepository& fieldOutputs() { return m_fieldOutputs; }
    const yld_FieldOutputRepository& fieldOutputs() const { return m_fieldOutputs; }
    /// Looks for fields that came in since; tells whether there were any.
    bool update();

    /// The other half of a complex pair; an empty frame where there is none.
    yld_Frame associatedFrame() const;
    bool isImaginary() const;
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
