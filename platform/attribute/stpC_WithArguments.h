#ifndef STPC_WITHARGUMENTS_H
#define STPC_WITHARGUMENTS_H

#include "platform/store/pcl_Persistent.h"
#include "platform/value/val_PrimEnum.h"

#include <string>
#include <tuple>
#include <utility>

/// A number that may be left to the solver: given as a number, or as a text that says whether it is used at all.
struct stpC_Optional
{
    double value = 0.0;
    bool isUsed = false;
    std::string text; ///< empty where a number was given
};

/// What is given for an argument of type T, and what stands in the file for it.
template<class T> struct stpC_Argument
{
    using Given = T;
    using Kept = T;
    static const Kept& keep(const Given& given) { return given; }
};
template<> struct stpC_Argument<shr_String>
{
    using Given = shr_String;
    using Kept = std::string;
    static Kept keep(const Given& given) { return given.cStr(); }
};
/// Given as a text, which must be one of the enumeration's; see val_PrimEnum for what it raises.
template<class E> struct stpC_Argument<val_PrimEnum<E>>
{
    using Given = shr_String;
    using Kept = std::string;
    static Kept keep(const Given& given) { return val_PrimEnum<E>(given).GetText(); }
};

/// The column of an argument, counted from 1: "argument 1", and so on, with an ending for a second and third part.
const char* stpC_argumentName(int number, int part = 0);

/// Base of a persistent class that is a list of arguments in the order in which they are given, and nothing else: each
/// has a column of its own, named after its place.
template<class Self, class... Arguments> class stpC_WithArguments : public pcl_Class<Self>
{
public:
    stpC_WithArguments() = default;
    explicit stpC_WithArguments(const typename stpC_Argument<Arguments>::Given&... given)
        : m_kept(stpC_Argument<Arguments>::keep(given)...)
    {
    }

    /// An argument by its place, counted from 1.
    template<int number> const auto& argument() const { return std::get<number - 1>(m_kept); }

    template<class This, class V> static void attributes(This& self, V&& visit)
    {
        auto& kept = static_cast<Part<This>&>(self).m_kept;
        [&]<std::size_t... i>(std::index_sequence<i...>)
        {
            (visitOne(std::get<i>(kept), static_cast<int>(i) + 1, visit), ...);
        }
        (std::index_sequence_for<Arguments...>());
    }

private:
    template<class This>
    using Part = std::conditional_t<std::is_const_v<This>, const stpC_WithArguments, stpC_WithArguments>;

    template<class Member, class V> static void visitOne(Member& member, int number, V& visit)
    {
        if constexpr (std::is_same_v<std::remove_const_t<Member>, stpC_Optional>) {
            visit(stpC_argumentName(number), member.value);
            visit(stpC_argumentName(number, 1), member.isUsed);
            visit(stpC_argumentName(number, 2), member.text);
        } else {
            visit(stpC_argumentName(number), member);
        }
    }

    std::tuple<typename stpC_Argument<Arguments>::Kept...> m_kept{};
};

#endif
