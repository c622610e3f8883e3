#ifndef YLD_YLD_H
#define YLD_YLD_H

#include "containers/shr_COW.h"
#include "platform/base/bas_Export.h"
#include "yld_ApiExtension.h"
#include "yld_Assembly.h"
#include "yld_Enum.h"
#include "yld_Part.h"
#include "yld_SectionCategory.h"
#include "yld_SectorDefinition.h"
#include "yld_Sequence.h"
#include "yld_StepRepository.h"
#include "yld_String.h"
#include "yld_UserData.h"

class mshK_Model;
class sto_Assembly;
class sto_Model;
class sto_Sto;
class yld_BCRepository;
class yld_ConstraintRepository;
class yld_ContactControlsRepository;
class yld_DiagnosticData;
class yld_FieldOutputRequestRepository;
class yld_HistoryOutputRequestRepository;
class yld_IPRepository;
class yld_InteractionRepository;
class yld_JobData;
class yld_LoadRepository;
class yld_PredefinedFieldRepository;

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
    /// The normalised absolute path.
    yld_String path() const { return m_path; }
    bool isReadOnly() const { return m_readOnly; }
    /// The version of the file's layout. Reads it from the file.
    int databaseVersion() const;

    /// The setters of this group write to the model or the store as well; the next save keeps what they set. On a
    /// read-only database they raise what the store says, and change nothing.
    yld_String analysisTitle() const { return m_analysisTitle; }
    void setAnalysisTitle(const yld_String& title);
    yld_String description() const { return m_description; }
    void setDescription(const yld_String& description);
    /// The job of the global model that drives this submodel.
    yld_String globalJob() const { return m_globalJob; }
    void setGlobalJob(const yld_String& job);
    /// "1" once this object has been told that a global model of shells drives a submodel of solids, else "0": what
    /// the file has of it is not looked at.
    yld_String shellGlobalModelToSolid() const { return yld_String(static_cast<int>(m_shellToSolid)); }
    void setShellGlobalModelToSolid(bool shellToSolid);
    /// Lines of solver input that belong to the model, and those that stand before it; kept by the model alone.
    yld_String solverInput() const;
    void setSolverInput(const yld_String& text);
    yld_String topLevelSolverInput() const;
    void setTopLevelSolverInput(const yld_String& text);
    /// Says that whoever uses this object wants the user's own data alone: the first access then leaves the steps
    /// unread. A read-only database takes it for as long as it is open.
    void setOnlyHasUserDefinedData(bool only);
    /// Says that the model is one of so many equal sectors about an axis.
    /// @param point1, point2   on the axis, three coordinates each
    /// @param tieConstraints   the names of the constraints that tie neighbouring sectors
    /// Raises "A point of the symmetry axis needs 3 coordinates.", "The points of the symmetry axis coincide.",
    /// "The number of sectors must be positive.".
    void setCyclicSymmetry(const yld_Sequence<float>& point1, const yld_Sequence<float>& point2, int sectors,
                           const yld_Sequence<yld_String>& tieConstraints = yld_Sequence<yld_String>());
    bool hasSectorDefinition() const;
    yld_SectorDefinition sectorDefinition() const;

    /// The references hold as long as the database is open.
    yld_StepRepository& steps();
    const yld_StepRepository& steps() const;
    yld_StepRepository& step() { return steps(); }
    const yld_StepRepository& step() const { return steps(); }
    yld_PartRepository& parts();
    yld_PartRepository& part() { return parts(); }
    yld_SectionCategoryRepository& sectionCategories();
    const yld_SectionCategoryRepository& sectionCategories() const;
    yld_SectionCategoryRepository& sectionCategory() { return sectionCategories(); }
    const yld_SectionCategoryRepository& sectionCategory() const { return sectionCategories(); }
    yld_Assembly& rootAssembly();
    /// The assembly without the steps, for readers of the model. Each call before the first access to anything else
    /// reads the model again.
    const yld_Assembly& constRootAssembly() const;

    /// How the analysis was set up, each kind by name. Each call looks for what the model has got since; the contact
    /// controls are read once.
    yld_BCRepository& boundaryConditions();
    yld_IPRepository& interactionProperties();
    yld_ContactControlsRepository& contactControls();
    yld_InteractionRepository& interactions();
    yld_PredefinedFieldRepository& predefinedFields();
    yld_LoadRepository& loads();
    yld_ConstraintRepository& constraints();
    yld_FieldOutputRequestRepository& fieldOutputRequests();
    yld_HistoryOutputRequestRepository& historyOutputRequests();

    /// What a user has added for plotting. Of a read-only database without any, empty.
    yld_UserData& userData();
    const yld_UserData& userData() const;

    /// The job that the database comes from. Reads no part and no step.
    yld_JobData jobData() const;
    /// What the job has told of its course; of a database without diagnostics, a view on nothing. Reads no part and no
    /// step.
    yld_DiagnosticData diagnosticData() const;

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

    /// The frame whose time matches: its value in single precision, and where the step begins after time 0, that
    /// added. Of frames that match equally well the last one, but with MATCH_BEFORE the first. Raises
    /// "Frame not found.".
    yld_Frame getFrame(double value, yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);

    /// Adds an extension under a type; one that the type has already stays. The next save keeps it; a read-only
    /// database has it for as long as it is open.
    void extendApi(yld_Enum::yld_ApiType type, const yld_ApiExtension& extension);

    /// Looks for steps and frames that a writer added since. False before the first access: nothing has been read
    /// that could be out of date. The answer is that of the last step, whatever came to those before it.
    bool update();
    /// Keeps all changes on disk. The path is empty or the database's own.
    /// Raises "YLD not saved. Changing the path is not allowed.", "Database save failed. " with the reason.
    void save(yld_String path = yld_String());
    /// Closes without saving. Every reference into the database dangles from here on, this one too.
    void close();
    bool isClosed() const;

    /// The store and its model, for the layers underneath.
    sto_Sto sto() const;
    mshK_Model model() const;

private:
    friend struct yld_YldTestAccess;

    yld_Yld(const yld_String& name, const yld_String& analysisTitle, const yld_String& description,
            const yld_String& path, const sto_Sto& store, const sto_Model& model, bool readOnly, bool makeUserData);
    void read() const;
    void readModel(const sto_Model& model) const;
    void readParts(const sto_Model& model) const;
    void readSectionCategories(const sto_Assembly& assembly) const;
    void readAssembly() const;
    void readSteps(const sto_Model& model) const;
    bool readStep(const sto_Model& model, const yld_String& name, const yld_String& previous) const;
    yld_ApiExtension apiExtension(yld_Enum::yld_ApiType type) const;
    yld_ApiExtension* findApiExtension(yld_Enum::yld_ApiType type);

    struct ApiExtensions;
    struct Attributes;

    shr_COW<sto_Sto> m_sto;
    yld_String m_name;
    yld_String m_description;
    yld_String m_analysisTitle;
    yld_String m_path;
    bool m_onlyHasUserDefinedData = false;
    mutable shr_COW<yld_StepRepository> m_steps;
    mutable shr_COW<yld_PartRepository> m_parts;
    mutable shr_COW<yld_SectionCategoryRepository> m_sectionCategories;
    mutable shr_COW<yld_Assembly> m_rootAssembly;
    shr_COW<Attributes> m_attributes;
    yld_UserData m_userData;
    bool m_readOnly = false;
    mutable bool m_dataRead = false;
    shr_COW<ApiExtensions> m_apiExtensions;
    bool m_assemblyRead = false; // what the reading of the assembly's sets is told
    yld_String m_globalJob;
    bool m_shellToSolid = false;
};

/// Opens a database under its path as the name. The reference is good until the name is closed.
/// @param readOnly  false takes the lock file; a lock of another program turns the open into a read-only one,
///                  with a warning, and so does a file that cannot be written
YLD_API yld_Yld& openYld(const yld_String& path, bool readOnly = false);
/// @param name       the name to register; one that is open on the same path gives the open database
/// @param path       empty means the name; may begin with the name of a remote connection and a colon
/// @param checkPhase refuse a file that an input phase is about to replace
/// Raises "A database named ('%s') already exists.", "Cannot open file %1$s. %2$s", and for a file of another
/// version the texts of error numbers 0 and 1.
YLD_API yld_Yld& openYld(const yld_String& name, const yld_String& path, bool readOnly, bool checkPhase);
/// Creates a database. An empty path means the name.
/// Raises "A database named ('%s') already exists.", "The path '%s' has an existing sto associated with it.",
/// "Cannot create file %1$s. %2$s".
YLD_API yld_Yld& Yld(const yld_String& name, const yld_String& analysisTitle = yld_String(),
                     const yld_String& description = yld_String(), const yld_String& path = yld_String());
/// Keeps all changes on disk. For a read-only database it does nothing but warn "Database was opened read-only and
/// cannot be saved.".
YLD_API void saveYld(yld_Yld& yld);
/// Closes the file without saving, under all names that it is open by. A lock file stays: yld_Yld::close() removes it.
YLD_API void closeYld(yld_Yld& yld);
/// With no database open here, but one open in the store: that one, which is thereby opened read-only under its file's
/// name. With one database open, an empty object, which stands for no name.
/// Raises "The getActiveYld method can only be called if a single yld file is open.", "No yld files are open.".
YLD_API yld_Yld& getActiveYld();

#endif
