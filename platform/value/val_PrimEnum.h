#ifndef VAL_PRIM_ENUM_H
#define VAL_PRIM_ENUM_H

#include "containers/shr_String.h"

#include <cstdint>

class pcl_MetadataRegistrar;
class pcl_ReadVisitor;
class pcl_WriteVisitor;
template<class K, class V> class shr_Map;

/// A persistent value that stands inside another object.
class val_Primitive
{
public:
    virtual ~val_Primitive() = default;

    /// A new value of the same class with the same content, owned by the caller.
    virtual val_Primitive* Copy() const = 0;

    /// Hands the content to the visitor, which may decline.
    virtual void DBWrite(pcl_WriteVisitor& visitor) const = 0;

protected:
    val_Primitive() = default;
    val_Primitive(const val_Primitive&) = default;
    val_Primitive& operator=(const val_Primitive&) = default;
};

/// One enumerator: its text and its number. A table is an array of rows in the order in which clients see the
/// enumerators, ended by a row with a null text. Numbers may repeat; the first row with a number wins.
struct val_PrimEnumRow
{
    const char* text;
    std::int32_t value;
};

/// An enumerator whose enumeration is known only to the subclass: the text and the number. Files keep the
/// text, so numbers may change between releases and texts may not.
class val_PrimEnumBase : public val_Primitive
{
public:
    /// The class id and the name under which files keep a value.
    static unsigned TypeId() { return 0x13001b; }
    static const char* ClassName() { return "val_PrimEnum"; }
    /// Declares the class to the store.
    static void DeclareMetadata(pcl_MetadataRegistrar& registrar);

    /// The text, good for the life of the process.
    const char* GetText() const { return m_text; }
    /// The number.
    std::int32_t GetNumber() const { return m_number; }

    /// Takes the enumerator of that text, compared byte by byte. False, with nothing changed, when the table
    /// has no such text or the pointer is null.
    bool SetValue(const char* text);

    /// The enumerators from text to number, built anew from the rows; Key(i) gives the texts in the order of the
    /// table. Include containers/shr_Map.h to use it.
    shr_Map<shr_String, unsigned> PermissibleValues() const;
    /// The texts of the enumerators in the order of the table, parted by ", ".
    shr_String PermissibleValuesAsString() const;

    void DBWrite(pcl_WriteVisitor& visitor) const override;

protected:
    val_PrimEnumBase() = default;
    val_PrimEnumBase(const val_PrimEnumBase&) = default;
    val_PrimEnumBase& operator=(const val_PrimEnumBase&) = default;

    /// The table of the enumeration.
    virtual const val_PrimEnumRow* rows() const = 0;

    bool setNumber(std::int32_t number);

    // What the constructors do with their argument; each raises its message for one that is not in the table.
    // They belong into the body of a subclass's constructor, where rows() is the subclass's.
    void take(std::int32_t number);
    void take(const val_PrimEnumBase& other);
    void take(const shr_String& text);
    void take(pcl_ReadVisitor& visitor);

private:
    bool setRow(const val_PrimEnumRow* row);

    const char* m_text = "";
    std::int32_t m_number = 0;
};

/// An enumerator of E with its text.
///
/// A class gives its enumeration a table by specialising Table(); without one, nothing links. The flag is
/// false except for a second table of an enumeration that already has one.
///
/// Each constructor raises val_ValueErrorException for an argument that is not in the table; P below stands
/// for PermissibleValuesAsString().
template<class E, bool flag = false> class val_PrimEnum : public val_PrimEnumBase
{
public:
    /// Raises "val_PrimEnum(Enum) - Enum value not allowed: <number>  Permissible: <P>".
    explicit val_PrimEnum(E value) { take(static_cast<std::int32_t>(value)); }
    /// Takes the enumerator with the text of another enumeration's.
    /// Raises "val_PrimEnum(const val_PrimEnumBase&) - str not allowed: <text>".
    explicit val_PrimEnum(const val_PrimEnumBase& other) { take(other); }
    /// Raises "val_PrimEnum(const shr_String&) - str not allowed: <text>  Permissible: <P>".
    explicit val_PrimEnum(const shr_String& text) { take(text); }
    /// Reads what DBWrite wrote; an object without the text counts as one with an empty text.
    /// Raises "val_PrimEnum(const pcl_ReadVisitor&) - str not allowed: <text>  Permissible: <P>".
    explicit val_PrimEnum(pcl_ReadVisitor& visitor) { take(visitor); }

    val_PrimEnum(const val_PrimEnum&) = default;
    val_PrimEnum& operator=(const val_PrimEnum&) = default;
    ~val_PrimEnum() override = default;

    val_PrimEnum* Copy() const override { return new val_PrimEnum(*this); }

    E GetValue() const { return static_cast<E>(GetNumber()); }

    using val_PrimEnumBase::SetValue;
    /// Takes the first enumerator of that number. False, with nothing changed, when the table has none.
    bool SetValue(E value) { return setNumber(static_cast<std::int32_t>(value)); }

    /// Values are equal when their numbers are.
    friend bool operator==(const val_PrimEnum& a, const val_PrimEnum& b) { return a.GetNumber() == b.GetNumber(); }

    /// The table of E. Defined by specialisation alone.
    static const val_PrimEnumRow* Table();

protected:
    const val_PrimEnumRow* rows() const override { return Table(); }
};

#endif
