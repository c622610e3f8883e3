#ifndef YLD_FIELD_OUTPUT_REPOSITORY_H
#define YLD_FIELD_OUTPUT_REPOSITORY_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_FieldOutput.h"
#include "yld_Repository.h"
#include "yld_Sequence.h"
#include "yld_String.h"

class sto_Assembly;
class sto_FieldDescription;
class sto_FieldFrame;
class sto_FieldStep;

/// The fields of one frame, by name. A field is looked up in the file when it is first asked for; its values stay
/// unread until they are asked for. A copy shares what has been read.
class YLD_API yld_FieldOutputRepository
{
public:
    yld_FieldOutputRepository();
    yld_FieldOutputRepository(const sto_FieldFrame& fieldFrame, const shr_ArrayCOW<sto_Assembly>& assembly,
                              const sto_FieldStep& fieldStep, int frameNumber);
    yld_FieldOutputRepository(const yld_FieldOutputRepository&);
    yld_FieldOutputRepository& operator=(const yld_FieldOutputRepository&);
    ~yld_FieldOutputRepository();

    /// The number of fields. The first call reads the descriptions of all of them.
    int size() const;
    bool isMember(const yld_String& name) const;
    /// The field; an empty one for a name that the frame lacks. The reference is good until a field is added or the
    /// frame goes. Reads this one field's description.
    yld_FieldOutput& get(const yld_String& name);
    const yld_FieldOutput& constGet(const yld_String& name) const;
    const yld_FieldOutput& get(const yld_String& name) const { return constGet(name); }
    const yld_FieldOutput& operator[](const yld_String& name) const { return constGet(name); }
    /// All names, in the order in which the fields were written. Reads no description (but those of contact variables,
    /// whose names tell their surfaces).
    yld_Sequence<yld_String> getFieldOutputNames() const;

    /// Adds a field that the caller has made; where the name is in use, the field that has it stays.
    void insert(const yld_FieldOutput& field);
    /// Looks for fields that were written since all fields were last read; tells whether there were any. It reads the
    /// descriptions of all fields.
    bool update();

    bool isFullyRead() const { return m_fullyRead; }
    /// For the layers underneath: whether the frame is one of a database, and its stored fields.
    bool hasStore() const;
    const shr_COW<sto_FieldFrame>& fieldFrame() const { return m_fieldFrame; }
    const shr_COW<sto_FieldStep>& fieldStep() const { return m_fieldStep; }

private:
    friend class yld_Frame;

    // Whether another database stands behind the frame; its own assembly counts then.
    static bool isBehindOtherDatabase(const shr_ArrayCOW<sto_Assembly>& assembly);
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

#endif
