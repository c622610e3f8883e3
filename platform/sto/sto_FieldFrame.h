#ifndef STO_FIELDFRAME_H
#define STO_FIELDFRAME_H

#include "platform/result/fld_Frame.h"
#include "platform/sto/sto_FieldContainer.h"
#include "platform/store/fio_Buffer.h"
#include "platform/store/fio_Extents.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class fld_FieldDescription;
class sto_Field;
class sto_FieldDescription;

/// A handle on the fields of a frame.
class sto_FieldFrame
{
public:
    sto_FieldFrame() = default;
    explicit sto_FieldFrame(const lnk_ShortCut<fld_Frame>& frame) : m_frame(frame) {}

    bool isValid() const { return m_frame.isValid() && m_frame.fetch()->m_fields.isValid(); }
    const lnk_ShortCut<fld_Frame>& shortCut() const { return m_frame; }
    bool operator==(const sto_FieldFrame& other) const { return m_frame == other.m_frame; }

    /// The fields by key.
    sto_FieldContainer field() const { return sto_FieldContainer(m_frame); }
    int numFields() const;
    /// The key of each field, in the store's order. Reads no field.
    std::vector<int> fieldKeys() const;
    /// The name of each field as its key text has it, in the store's order, with repeats. Reads no field.
    std::vector<std::string> fieldNames() const;
    /// The keys of all fields of a name, ascending. Reads no field.
    /// Cost: the first call of a handle looks at all names, a later one at those that are asked for and those that came
    /// in.
    std::vector<int> fieldKeys(std::string_view name) const;

    /// The key of the first field, in the store's order, that one of these descriptions describes; -1 for none.
    /// Reads the rows of those fields alone that have a name and a position in common with one.
    int firstKeyOf(const std::vector<sto_FieldDescription>& descriptions) const;

    /// Room for all values of a description, to be filled and handed to Field().
    /// @param storageType  0 single precision, 1 double
    static fio_Buffer allocateField(const sto_FieldDescription& description, int storageType = 0);
    static fio_Buffer allocateField(const fld_FieldDescription& description, int storageType = 0);
    /// Values that the caller has already, to be handed to Field(): the store decides whether they are copied. The
    /// caller keeps them until then.
    /// @param pieces  what makes up the values, in their order
    static fio_Buffer takeField(std::span<const fio_Extents::Piece> pieces) { return fio_Extents::take(pieces); }
    /// Keeps the values of a block; they go to disk at once.
    /// @param conjugate    the imaginary half, of the same size; empty for none
    /// @param orientation  what Orientation() gave; an empty handle for none
    sto_Field Field(const sto_FieldDescription& description, int key, const fio_Buffer& values,
                    const fio_Buffer& conjugate, const sto_Field& orientation, int storageType = 0);
    /// The last field of this frame with a description; an empty handle where there is none. Reads rows of fields of
    /// the same name, position and type alone.
    sto_Field find(const sto_FieldDescription& description) const;
    /// Puts other values, in single precision, in the place of those of a field of this frame. Handles that have read
    /// the field keep what they have read.
    void Replace(const sto_Field& field, const fio_Buffer& values, const fio_Buffer& conjugate) const;
    /// Keeps the local systems of a block. They have no name in the frame; the block refers to them.
    sto_Field Orientation(const sto_FieldDescription& description, int key, const fio_Buffer& values,
                          int storageType = 0);

    /// Gives back the memory of the fields' rows and of the frame's own, as far as the disk has them.
    void release() const;

private:
    struct Index;

    lnk_ShortCut<fld_Frame> m_frame;
    mutable std::shared_ptr<Index> m_index; // shared by the copies that are made of it later
};

#endif
