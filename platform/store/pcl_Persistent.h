#ifndef PCL_PERSISTENT_H
#define PCL_PERSISTENT_H

#include "platform/store/lnk_ShortCut.h"
#include "platform/store/pcl_Array.h"
#include "platform/store/pcl_ClassMetadata.h"
#include "platform/store/pcl_MetadataRegistrar.h"
#include "platform/store/pcl_ReadVisitor.h"
#include "platform/store/pcl_WriteVisitor.h"

#include <concepts>
#include <memory>
#include <type_traits>

class fio_FileBody;

/// An object that the store keeps as one row of its class's table.
class pcl_Persistent
{
public:
    virtual ~pcl_Persistent() = default;

    virtual const pcl_ClassMetadata& Metadata() const = 0;
    virtual void DBWrite(pcl_WriteVisitor& visitor) const = 0;
    virtual void DBRead(pcl_ReadVisitor& visitor) = 0;
    virtual std::shared_ptr<pcl_Persistent> Clone() const = 0;
    /// Sends bulk arrays that changed to disk.
    virtual void StoreArrays(const std::shared_ptr<fio_FileBody>& file) = 0;
};

/// Maps a member's type to the kind of its attribute.
template<class T> struct pcl_KindOf;
template<> struct pcl_KindOf<int>
{
    static constexpr pcl_Kind kind = pcl_Kind::INT32;
};
template<> struct pcl_KindOf<long long>
{
    static constexpr pcl_Kind kind = pcl_Kind::INT64;
};
template<> struct pcl_KindOf<float>
{
    static constexpr pcl_Kind kind = pcl_Kind::FLOAT;
};
template<> struct pcl_KindOf<double>
{
    static constexpr pcl_Kind kind = pcl_Kind::DOUBLE;
};
template<> struct pcl_KindOf<bool>
{
    static constexpr pcl_Kind kind = pcl_Kind::BOOL;
};
template<> struct pcl_KindOf<std::string>
{
    static constexpr pcl_Kind kind = pcl_Kind::STRING;
};
template<> struct pcl_KindOf<std::vector<int>>
{
    static constexpr pcl_Kind kind = pcl_Kind::INTS;
};
template<> struct pcl_KindOf<std::vector<double>>
{
    static constexpr pcl_Kind kind = pcl_Kind::DOUBLES;
};
template<> struct pcl_KindOf<std::vector<std::string>>
{
    static constexpr pcl_Kind kind = pcl_Kind::STRINGS;
};
template<> struct pcl_KindOf<pcl_Array<int>>
{
    static constexpr pcl_Kind kind = pcl_Kind::INT_ARRAY;
};
template<> struct pcl_KindOf<pcl_Array<float>>
{
    static constexpr pcl_Kind kind = pcl_Kind::FLOAT_ARRAY;
};
template<> struct pcl_KindOf<pcl_Array<double>>
{
    static constexpr pcl_Kind kind = pcl_Kind::DOUBLE_ARRAY;
};

template<class T>
requires std::derived_from<T, lnk_AnyShortCut>
struct pcl_KindOf<T>
{
    static constexpr pcl_Kind kind = pcl_Kind::REFERENCE;
};

/// Base of every persistent class. The class declares itself in one place:
///
///     class grd_NodeData : public pcl_Class<grd_NodeData>
///     {
///     public:
///         static constexpr const char* className = "grd_NodeData";
///         static constexpr unsigned classId = 0x00200002;
///         static constexpr int classVersion = 1;
///         template<class Self, class V> static void attributes(Self& self, V&& visit)
///         {
///             visit("dimension", self.m_dimension);
///             visit("labels", self.m_labels);
///         }
///         ...
///         int m_dimension = 3;          // the initialiser is the default for files without the attribute
///         pcl_Array<int> m_labels;
///     };
///
/// From attributes() alone come the table, the rows and the reading. The class makes itself known when the program
/// starts; the first use of one that shares its id or its name with another raises what
/// pcl_MetadataRegistrar::checkUnique raises.
template<class T> class pcl_Class : public pcl_Persistent
{
public:
    static const pcl_ClassMetadata& ClassMetadata()
    {
        static const pcl_ClassMetadata metadata = declare();
        return metadata;
    }

    const pcl_ClassMetadata& Metadata() const override { return ClassMetadata(); }

    void DBWrite(pcl_WriteVisitor& visitor) const override
    {
        if (!visitor.StartWrite(T::classId)) return;
        T::attributes(static_cast<const T&>(*this),
                      [&visitor](const char* name, const auto& member) { visitor.Write(name, member); });
    }

    void DBRead(pcl_ReadVisitor& visitor) override
    {
        T::attributes(static_cast<T&>(*this),
                      [&visitor](const char* name, auto& member) { visitor.Read(name, member); });
    }

    std::shared_ptr<pcl_Persistent> Clone() const override { return std::make_shared<T>(static_cast<const T&>(*this)); }

    void StoreArrays(const std::shared_ptr<fio_FileBody>& file) override
    {
        T::attributes(static_cast<T&>(*this), [&file](const char*, auto& member) {
            if constexpr (requires { member.toDisk(file); }) member.toDisk(file);
        });
    }

private:
    static inline const pcl_KnownClass s_known{T::className, T::classId, T::classVersion, typeid(T)};

    static pcl_ClassMetadata declare()
    {
        pcl_MetadataRegistrar::checkUnique(s_known);
        pcl_ClassMetadata metadata(T::className, T::classId, T::classVersion);
        T sample;
        T::attributes(sample, [&metadata](const char* name, auto& member) {
            metadata.AddAttribute(name, pcl_KindOf<std::remove_cvref_t<decltype(member)>>::kind);
        });
        return metadata;
    }
};

#endif
