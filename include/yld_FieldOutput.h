#ifndef YLD_FIELD_OUTPUT_H
#define YLD_FIELD_OUTPUT_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_Enum.h"
#include "yld_FieldBulkData.h"
#include "yld_FieldLocation.h"
#include "yld_FieldValue.h"
#include "yld_Sequence.h"
#include "yld_SequenceFieldValue.h"
#include "yld_String.h"
#include "yld_SubField.h"

class sto_Assembly;
class sto_Field;
class sto_FieldDescription;
class sto_FieldFrame;
class sto_FieldStep;
class sto_PartInstance;
class yld_RowArray;
class yld_Set;

/// One named result in one frame, for example the displacements. Its values lie in blocks, one for each position,
/// element class, section point and instance; a block is read from the file when one of its values is first asked for.
///
/// A field of a frame is attached: it takes data, which the next save keeps. A field that getSubset() gives is
/// an orphan: it lives in memory alone and takes no data.
///
/// A copy shares the blocks. Values come one by one (values()) or as plain arrays (bulkDataBlocks()), which is faster.
class YLD_API yld_FieldOutput
{
public:
    /// An empty orphan.
    yld_FieldOutput();
    /// An orphan.
    yld_FieldOutput(const yld_String& name, const yld_String& description, yld_Enum::yld_DataTypeEnum type,
                    const yld_Sequence<yld_String>& componentLabels,
                    const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants,
                    const shr_ArrayCOW<sto_Assembly>& assembly, int frameNumber);
    /// A field of a frame that is in the store, still without blocks; addFieldKeys() adds them.
    yld_FieldOutput(const yld_String& name, const shr_ArrayCOW<sto_Assembly>& assembly,
                    const shr_COW<sto_FieldFrame>& fieldFrame, const shr_COW<sto_FieldStep>& fieldStep,
                    int frameNumber);
    /// A new field of a frame.
    yld_FieldOutput(const yld_String& name, const yld_String& description, yld_Enum::yld_DataTypeEnum type,
                    const yld_Sequence<yld_String>& componentLabels,
                    const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants,
                    const shr_ArrayCOW<sto_Assembly>& assembly, const shr_COW<sto_FieldFrame>& fieldFrame,
                    const shr_COW<sto_FieldStep>& fieldStep, int frameNumber, int rows, int cols,
                    yld_Enum::yld_DataSubtypeEnum subtype);
    /// The attributes of another field, without its data.
    yld_FieldOutput(const yld_FieldOutput& other, const shr_COW<sto_FieldFrame>& fieldFrame,
                    const shr_COW<sto_FieldStep>& fieldStep, int frameNumber);
    yld_FieldOutput(const yld_FieldOutput&);
    yld_FieldOutput& operator=(const yld_FieldOutput&);
    ~yld_FieldOutput();

    const yld_String& name() const { return m_name; }
    const yld_String& description() const { return m_description; }
    void setName(const yld_String& name) { m_name = name; }
    void setDescription(const yld_String& description) { m_description = description; }
    yld_Enum::yld_DataTypeEnum type() const { return m_type; }
    /// SYMMETRIC_MATRIX for a symmetric matrix, else UNDEFINED_DATASUBTYPE.
    yld_Enum::yld_DataSubtypeEnum subtype() const { return m_subtype; }
    /// Whether values have an imaginary half.
    bool isComplex() const { return m_isComplex; }
    bool hasLocalCoordSystem() const { return m_hasLocalCoordSystem; }
    /// The size of a matrix; of a vector of any length, its length and 1.
    int rows() const { return m_rows; }
    int cols() const { return m_cols; }
    /// Which invariants mean something for this field, as its writer said.
    const yld_Sequence<yld_Enum::yld_InvariantEnum>& validInvariants() const { return m_validInvariants; }
    /// The name of each component, for example "U1", "U2", "U3".
    const yld_Sequence<yld_String>& componentLabels() const { return m_componentLabels; }
    bool IsOrphan() const { return m_isOrphan; }
    /// The place of the frame in its step, counted from 0.
    int frameNumber() const { return m_frameNumber; }
    /// The keys under which the step keeps the blocks.
    const yld_Sequence<int>& fieldKeys() const { return m_fieldKeys; }
    /// The blocks.
    const yld_Sequence<yld_SubField>& SubField() const { return m_values.blocks(); }
    /// The distinct element types of the blocks, in order of first appearance.
    yld_Sequence<yld_String> baseElementTypes() const;

    /// The value at an index that counts from 0 over all blocks, one after the other. Raises "FieldValue index out of
    /// range.". Cost: the first value of a block reads the block; in a walk in order each further one some tens
    /// of nanoseconds, and no memory.
    yld_FieldValue value(int index) const { return m_values.get(static_cast<unsigned>(index)); }
    yld_FieldValue values(int index) const { return m_values.get(static_cast<unsigned>(index)); }
    const yld_SequenceFieldValue& value() const { return m_values; }
    const yld_SequenceFieldValue& values() const { return m_values; }
    yld_SequenceFieldValue& value() { return m_values; }
    yld_SequenceFieldValue& values() { return m_values; }
    /// The positions at which the field has values. The first two work them out from the blocks with each call and
    /// raise "Index out of range." for an index above their number.
    yld_FieldLocation location(int index) const;
    yld_FieldLocation locations(int index) const { return location(index); }
    const yld_SequenceFieldLocation& location() const { return m_locations; }
    const yld_SequenceFieldLocation& locations() const { return m_locations; }

    /// All blocks as plain arrays; reads all values. Each call makes the object anew: what an earlier call gave, and
    /// the arrays of its entries, must not be used any more. Take a copy of it to keep them.
    const yld_SequenceFieldBulkData& bulkDataBlocks() const;

    // A subset is an orphan with the name, component labels, invariants and keys of this field. It shares the stored
    // values. A choice that nothing fits gives a field without values, and raises nothing.

    /// The values at a position. Where the field has none there, and the position is CENTROID or ELEMENT_NODAL, values
    /// at integration points are moved to it by the element's shape.
    /// @param keepInMemory  moved values are kept in memory instead of being written into the frame; those of an orphan
    ///                      always are
    /// @param orientations  moved values carry their local systems
    yld_FieldOutput getSubset(yld_Enum::yld_ResultPositionEnum position, bool keepInMemory = true,
                              bool orientations = true) const;
    /// The values on a node set, an element set or a surface. Blocks whose own set has the name of the set are taken
    /// whole, and if there are any, only they. Otherwise labels are compared: those of nodes with a node set (values at
    /// ELEMENT_NODAL become values at NODAL), of elements with an element set, of surfaces with a surface. Labels of
    /// sets and blocks are taken for ascending: what stands out of order is missed. Raises "Unknown Set type." when a
    /// block belongs to no set. Reads labels, and of values only those that change their position; linear in the
    /// labels.
    yld_FieldOutput getSubset(const yld_Set& set) const;
    /// The values whose local system equals this one to the last digit: three rows of three direction cosines (two of
    /// two in the plane), as yld_FieldValue::localCoordSystem() gives them. Raises "Data is double precision.  Use
    /// localCoordSystemDouble". Reads all values.
    yld_FieldOutput getSubset(const yld_Sequence<yld_Sequence<float>>& localCoordSystem) const;
    /// The values at a section point, equal in number and text. This choice and those by location, instance and element
    /// type take whole blocks and read nothing.
    yld_FieldOutput getSubset(const yld_SectionPoint& sectionPoint) const;
    /// The values at a position that belong to one of its section points, or to none.
    yld_FieldOutput getSubset(const yld_FieldLocation& location) const;
    /// The values of one node. Of values at ELEMENT_NODAL the first that a block has for the node, as a value at NODAL.
    yld_FieldOutput getSubset(const yld_Node& node) const;
    /// All values of one element.
    yld_FieldOutput getSubset(const yld_Element& element) const;
    /// The values of one part instance; of an instance named "rootAssembly" all values.
    yld_FieldOutput getSubset(const yld_Instance& instance) const;
    /// The values on elements of a type, for example "HEX8".
    yld_FieldOutput getSubset(const yld_String& elementType) const;

    /// Writes results into an attached field, to be kept by the next save. The rows go to one block for each element
    /// class, in the order of the labels; this object shows them at once. Blocks that were written before a failure
    /// stay. isComplex(), validInvariants() and componentLabels() of this object do not change.
    /// @param labels            node labels for NODAL, else element labels, in any order; none for WHOLE_MODEL, which
    ///                          needs no instance either
    /// @param data              one row a node, an element (CENTROID, WHOLE_ELEMENT), a node of an element
    ///                          (ELEMENT_NODAL) or an integration point, in the order of the labels. Rows of a tensor
    ///                          may be shorter than its components: all of one length, the rest becomes 0
    /// @param sectionPoint      one of the elements' section category, equal in number and text; a default
    ///                          yld_SectionPoint for none
    /// @param localCoordSystem  one system for all rows of a tensor, as three rows of three direction cosines (in the
    ///                          plane two of two will do); empty for none
    /// @param conjugateData     the imaginary half, as many rows as data; empty for real results
    ///
    /// Raises, in this order: "addData() not valid for an orphaned object.", "Instance \"%s\" does not exists in this
    /// yld.", "Data and ConjugateData must have the same length.", "Transformation not allowed for scalar data." (for
    /// vectors and matrices too), "Invalid results position for field.", "Invalid node label %d", "Invalid element
    /// label %d", "The element labels passed into field.addData() method contain some undefined labels.", "Section
    /// Point number %s.", "Section point not valid for all elements."; then, block by block, "Insufficient data
    /// sequences provided.", "Insufficient coordSystem sequences provided.", "Length of data sequence incorrect. ...",
    /// "Invalid results type for field.", "Coordinate system definition should be of length 0, 1, or the same length as
    /// the data array.", "SCALAR data should be of length 1.", "Data items should be of length %s", "Incorrect tensor
    /// data length"; at last "field.addData() request not processed correctly. ...".
    void addData(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance,
                 const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& data,
                 const yld_SectionPoint& sectionPoint = yld_SectionPoint(),
                 const yld_Sequence<yld_Sequence<float>>& localCoordSystem = yld_Sequence<yld_Sequence<float>>(),
                 const yld_Sequence<yld_Sequence<float>>& conjugateData = yld_Sequence<yld_Sequence<float>>());
    /// @param localCoordSystems  one system a row of data, or one for all
    void addData(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance,
                 const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& data,
                 const yld_SectionPoint& sectionPoint,
                 const yld_Sequence<yld_Sequence<yld_Sequence<float>>>& localCoordSystems,
                 const yld_Sequence<yld_Sequence<float>>& conjugateData = yld_Sequence<yld_Sequence<float>>());
    /// The same on a stored instance.
    void addData(yld_Enum::yld_ResultPositionEnum position, const sto_PartInstance& instance,
                 const yld_Sequence<int>& labels, const yld_Sequence<yld_Sequence<float>>& data,
                 const yld_SectionPoint& sectionPoint,
                 const yld_Sequence<yld_Sequence<yld_Sequence<float>>>& localCoordSystems,
                 const yld_Sequence<yld_Sequence<float>>& conjugateData);
    /// Writes results for a node set at NODAL, or for an element set at INTEGRATION_POINT or ELEMENT_NODAL: one row a
    /// location, in the order of the set. The set must lie on one instance of this database. This object shows nothing
    /// of it until the field is read again from its frame; a second call for the same set and place in the frame writes
    /// over the first. Rows beyond those needed are ignored; components that a row lacks stay as they were, 0 at first.
    /// Nothing is written before the set is accepted. Each refusal names the set; docs/fields.md lists the messages.
    void addData(yld_Enum::yld_ResultPositionEnum position, const yld_Set& set,
                 const yld_Sequence<yld_Sequence<float>>& data,
                 const yld_SectionPoint& sectionPoint = yld_SectionPoint(),
                 const yld_Sequence<yld_Sequence<float>>& conjugateData = yld_Sequence<yld_Sequence<float>>());
    /// The same with plain arrays, for large results: the same checks in the same order, the same blocks. All arrays
    /// are borrowed for the call alone. Cost: one copy of the numbers, and little more where the labels stand in the
    /// order of the mesh.
    /// @param labels             numLabels user labels
    /// @param data               numRows rows of width components, one row after the other
    /// @param conjugateData      the imaginary half, laid out as data; null for none
    /// @param localCoordSystems  numSystems times nine direction cosines, axis by axis: one system for all rows, or one
    ///                           for each; null for none
    /// Raises also "addBulkData() takes no negative count.".
    void addBulkData(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance, const int* labels,
                     int numLabels, const float* data, int numRows, int width,
                     const yld_SectionPoint& sectionPoint = yld_SectionPoint(), const float* conjugateData = nullptr,
                     const float* localCoordSystems = nullptr, int numSystems = 0);
    /// The same in double precision, which the stored values keep.
    void addBulkData(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance, const int* labels,
                     int numLabels, const double* data, int numRows, int width,
                     const yld_SectionPoint& sectionPoint = yld_SectionPoint(), const double* conjugateData = nullptr,
                     const float* localCoordSystems = nullptr, int numSystems = 0);

    /// Copies all blocks of another field, which may be an orphan or belong to another database, into this one.
    /// Instances, sets and element classes are looked up by name in this field's model. Where the set of that name has
    /// other labels there, a new set named "api set" is made. Warns of what this field's model lacks. Raises "addData()
    /// not valid for an orphaned object." and "Fields are not compatible. They are either associated with different
    /// structural models or have incompatible attributes.".
    void addData(yld_FieldOutput& field);

    /// Adds the blocks that the frame keeps under these keys; tells whether any was new.
    bool addFieldKeys(const yld_Sequence<int>& keys);
    /// Sets the component labels: those given, or if there are none the field's name followed by the default ending of
    /// each component, as in "S11". Those of scalars and matrices stay as they are.
    /// Raises "The number of component labels should be %s".
    void setDefaultComponents(const yld_Sequence<yld_String>& given);
    /// Raises "Invalid invariant" for an invariant that the type lacks.
    static void checkValidInvariants(yld_Enum::yld_DataTypeEnum type,
                                     const yld_Sequence<yld_Enum::yld_InvariantEnum>& invariants);

    /// Whether it is the very same object, as for blocks: values are never compared.
    bool operator==(const yld_FieldOutput& other) const { return this == &other; }

private:
    friend class yld_FieldAddDataSet;
    friend class yld_FieldAddDataUtils;
    friend class yld_FieldCopy;
    friend class yld_Frame;

    void checkAttached() const;
    void addRows(yld_Enum::yld_ResultPositionEnum position, const yld_Instance& instance, const int* labels,
                 int numLabels, const yld_RowArray& rows, const yld_RowArray& conjugateRows, int numRows, int width,
                 const yld_SectionPoint& sectionPoint, const float* localCoordSystems, int numSystems);
    bool appendFieldKeys(const yld_Sequence<int>& keys);
    yld_FieldOutput subsetOf(const yld_SequenceFieldValue& values) const;
    void moveToPosition(const yld_SequenceFieldValue& source, yld_Enum::yld_ResultPositionEnum position,
                        bool keepInMemory, bool orientations);
    void adoptDescription(const sto_Field& field);
    void widenTensorType(const sto_FieldDescription& description);
    void narrowTensorType();
    void refreshLocations();

    yld_String m_name;
    yld_String m_description;
    yld_Enum::yld_DataTypeEnum m_type = yld_Enum::UNDEFINED_DATATYPE;
    yld_Enum::yld_DataSubtypeEnum m_subtype = yld_Enum::UNDEFINED_DATASUBTYPE;
    bool m_isComplex = false;
    bool m_hasLocalCoordSystem = false;
    int m_rows = 0;
    int m_cols = 0;
    yld_Sequence<yld_Enum::yld_InvariantEnum> m_validInvariants;
    yld_Sequence<yld_String> m_componentLabels;
    mutable yld_SequenceFieldBulkData m_bulkData;
    yld_SequenceFieldValue m_values;
    yld_SequenceFieldLocation m_locations;
    bool m_isOrphan = true;
    shr_ArrayCOW<sto_Assembly> m_assembly;
    shr_COW<sto_FieldFrame> m_fieldFrame;
    shr_COW<sto_FieldStep> m_fieldStep;
    yld_Sequence<int> m_fieldKeys;
    int m_frameNumber = -1;
};

#endif
