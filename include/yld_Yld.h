#ifndef YLD_YLD_H
#define YLD_YLD_H

#include "containers/shr_COW.h"
#include "yld_Assembly.h"
#include "yld_Enum.h"
#include "yld_Export.h"
#include "yld_Part.h"
#include "yld_SectionCategory.h"
#include "yld_Step.h"
#include "yld_String.h"

class mshK_Model;
class sto_Sto;

/// A results database. Opening one reads its header alone; the first access to steps, parts or assembly reads
/// their lists. A copy shares everything until one side writes. For the thread that opened it.
class YLD_API yld_Yld
{
public:
    /// An empty object, of no database.
    yld_Yld();
    /// @param store  the open store
    yld_Yld(yld_String name, yld_String analysisTitle, yld_String description, yld_String path, const sto_Sto& store,
            bool readOnly, bool makeUserData);
    yld_Yld(const yld_Yld&);
    yld_Yld& operator=(const yld_Yld&);
    ~yld_Yld();

    yld_String name() const { return m_name; }
    yld_String analysisTitle() const { return m_analysisTitle; }
    void setAnalysisTitle(const yld_String& title);
    yld_String description() const { return m_description; }
    void setDescription(const yld_String& description);
    /// The normalised absolute path.
    yld_String path() const { return m_path; }
    bool isReadOnly() const { return m_readOnly; }

    /// The references hold as long as the database is open.
    yld_StepRepository& steps();
    const yld_StepRepository& steps() const;
    yld_StepRepository& step() { return steps(); }
    yld_PartRepository& parts();
    yld_PartRepository& part() { return parts(); }
    yld_SectionCategoryRepository& sectionCategories();
    const yld_SectionCategoryRepository& sectionCategories() const;
    yld_SectionCategoryRepository& sectionCategory() { return sectionCategories(); }
    yld_Assembly& rootAssembly();
    /// The assembly without the steps, for readers of the model.
    const yld_Assembly& constRootAssembly() const;

    /// A new part. Raises "A part named \"%s\" already exists.".
    yld_Part& Part(const yld_String& name, yld_Enum::yld_DimensionEnum dimension, yld_Enum::yld_PartTypeEnum type);
    yld_SectionCategory& SectionCategory(const yld_String& name, const yld_String& description);
    /// A new step.
    /// @param timePeriod        above 0 for a step in time; else a perturbation
    /// @param previousStepName  the step that this one follows; "Initial" for the first place; empty for the last
    /// @param procedure         a procedure keyword
    /// @param totalTime         the time at which the step begins; negative to continue the last step
    /// Raises "Previous step "%s" not found.", "A Step named "%s" already exists.".
    yld_Step& Step(const yld_String& name, const yld_String& description, yld_Enum::yld_DomainEnum domain,
                   double timePeriod = 0.0, const yld_String& previousStepName = yld_String(),
                   const yld_String& procedure = yld_String(), double totalTime = -1.0);

    /// The frame whose total time matches. Raises "Frame not found.".
    yld_Frame getFrame(double value, yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);

    /// Looks for steps and frames that a writer added since; tells whether there were any.
    bool update();
    /// Keeps all changes on disk. The path is empty or the database's own.
    /// Raises "YLD not saved. Changing the path is not allowed.", "Database save failed. " with the reason.
    void save(yld_String path = yld_String());
    /// Closes without saving. Every reference into the database dangles from here on, this one too.
    void close();
    bool isClosed() const;

    sto_Sto sto() const;

private:
    void read() const;
    void readModel() const;
    void readSteps() const;
    bool readStep(const yld_String& name, const yld_String& previous) const;

    shr_COW<sto_Sto> m_sto;
    yld_String m_name;
    yld_String m_description;
    yld_String m_analysisTitle;
    yld_String m_path;
    mutable shr_COW<yld_StepRepository> m_steps;
    mutable shr_COW<yld_PartRepository> m_parts;
    mutable shr_COW<yld_SectionCategoryRepository> m_sectionCategories;
    mutable shr_COW<yld_Assembly> m_rootAssembly;
    bool m_readOnly = false;
    mutable bool m_dataRead = false;
};

/// Opens a database under its path as the name.
/// @param readOnly  false takes the lock file; a lock of another program turns the open into a read-only one,
///                  with a warning
YLD_API yld_Yld& openYld(const yld_String& path, bool readOnly = false);
/// @param name       the name to register; an empty path means the name
/// @param checkPhase refuse a file that an input phase is about to replace
/// Raises "A database named ('%s') already exists.", "Cannot open file %1$s. %2$s", and for a file of another
/// version the texts of error numbers 0 and 1.
YLD_API yld_Yld& openYld(const yld_String& name, const yld_String& path, bool readOnly, bool checkPhase);
/// Creates a database. An empty path means the name.
/// Raises "A database named ('%s') already exists.", "The path '%s' has an existing sto associated with it.",
/// "Cannot create file %1$s. %2$s".
YLD_API yld_Yld& Yld(const yld_String& name, const yld_String& analysisTitle = yld_String(),
                     const yld_String& description = yld_String(), const yld_String& path = yld_String());
/// Keeps all changes on disk; warns for a read-only database.
YLD_API void saveYld(yld_Yld& yld);
YLD_API void closeYld(yld_Yld& yld);

#endif
