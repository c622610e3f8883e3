#ifndef YLD_SECTION_H
#define YLD_SECTION_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_String.h"

class secC_Section;
template<class T> class lnk_ShortCut;

/// A section of the model, which can be assigned to elements: a reference to the stored one.
class YLD_API yld_Section
{
public:
    /// No section.
    yld_Section();
    explicit yld_Section(const lnk_ShortCut<secC_Section>& section);
    yld_Section(const yld_Section&);
    yld_Section& operator=(const yld_Section&);
    virtual ~yld_Section();
    /// The same section in a new object, which the caller owns.
    virtual yld_Section* Copy() const;

    /// The number of the class of stored sections, the same for every kind.
    static int typeIdentifier();
    /// The number of this section's kind. Raises "Cannot fetch sub type for empty yld_Section object.".
    int subTypeIdentifier() const;
    /// Raises "The section of an assignment is empty." for no section.
    yld_String name() const;

private:
    shr_CountedHld<lnk_ShortCut<secC_Section>> m_section;
};

#endif
