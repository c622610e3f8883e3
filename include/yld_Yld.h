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

/// A results database: one file, with the model, the steps with their results, and what users have added. openYld()
/// opens one, Yld() makes one; both give a reference that is good until the database is closed. What is changed
/// is kept by save() and lost without it.
///
/// Opening reads the header alone; the first access to steps, parts or assembly reads their lists; values are read when
/// they are asked for. A copy shares everything until one of the two is changed. Only the thread that opened a database
/// may use it.
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

    /// Texts of the database as a whole, down to setTopLevelSolverInput(). What the setters set is kept by the next
    /// save. On a read-only database they raise what the store says, and change nothing.
    yld_String analysisTitle() const { return m_analysisTitle; }
    void setAnalysisTitle(const yld_String& title);
    yld_String description() const { return m_description; }
    void setDescription(const yld_String& description);
    /// The job of the global model that drives this submodel.
    yld_String globalJob() const { return m_globalJob; }
    void setGlobalJob(const yld_String& job);
    /// "1" after setShellGlobalModelToSolid(true) on this object, which says that a global model of shells drives a
    /// submodel of solids; else "0", whatever the file says.
    yld_String shellGlobalModelToSolid() const { return yld_String(static_cast<int>(m_shellToSolid)); }
    void setShellGlobalModelToSolid(bool shellToSolid);
    /// Lines of solver input that belong to the model, and those that stand before it; kept by the model alone.
    yld_String solverInput() const;
    void setSolverInput(const yld_String& text);
    yld_String topLevelSolverInput() const;
    void setTopLevelSolverInput(const yld_String& text);
    /// Says that this program wants user data alone: the first access then does not read the steps. On a read-only
    /// database it holds as long as the database is open.
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

    /// The parts of the database. The first access to any of them reads the lists of all, see docs/lifecycle.md.
    /// References are good as long as the database is open.
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
    /// The assembly, for those who want the model alone: the steps are not read. Until something else is asked for,
    /// each call reads the model again.
    const yld_Assembly& constRootAssembly() const;

    /// How the analysis was set up: boundary conditions, loads and so on, each kind by name. Each call adds what the
    /// model has got since the last one, except for the contact controls, which are read once.
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
    /// What the job has reported of its course; without diagnostics in the file, an object that is not filled. Reads no
    /// part and no step.
    yld_DiagnosticData diagnosticData() const;

    /// A new part. Raises "A part named \"%s\" already exists.".
    yld_Part& Part(const yld_String& name, yld_Enum::yld_DimensionEnum dimension, yld_Enum::yld_PartTypeEnum type);
    /// A new section category, or the one that has the name already; addElements() takes it.
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

    /// The frame of any step whose time matches. The time of a frame is its value, in single precision, plus the time
    /// at which its step begins if that is above 0. Of frames that match equally well the last one, but with
    /// MATCH_BEFORE the first. Raises "Frame not found.".
    yld_Frame getFrame(double value, yld_Enum::yld_MatchEnum match = yld_Enum::MATCH_CLOSEST);

    /// Adds an extension for a part of the interface, where that has none yet; an extension that is there stays. The
    /// next save keeps it; a read-only database has it as long as it is open.
    void extendApi(yld_Enum::yld_ApiType type, const yld_ApiExtension& extension);

    /// Looks for steps and frames that a writer has saved since the last look. The answer tells of the last step alone:
    /// false does not mean that the steps before it got nothing. Before the first access to the lists it does nothing
    /// and gives false.
    bool update();
    /// Keeps all changes on disk. The path is empty or the database's own.
    /// Raises "YLD not saved. Changing the path is not allowed.", "Database save failed. " with the reason.
    void save(yld_String path = yld_String());
    /// Closes without saving, and removes the lock file. All references into the database, this one too, must not be
    /// used any more.
    void close();
    bool isClosed() const;

    /// For the layers underneath: the store and its model.
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

/// Opens a database; its path is its name in this process. An open one is given as it is. The reference is good until
/// the database is closed. Reads the header of the file.
/// @param readOnly  false makes a lock file, `<name>.lck` beside the database. Where one stands already, or the file
///                  cannot be written, the database is opened for reading with a warning
/// Raises what the next function raises.
YLD_API yld_Yld& openYld(const yld_String& path, bool readOnly = false);
/// The same under a name of the caller's.
/// @param name       an open database of that name and path is given as it is
/// @param path       empty means the name; may begin with the name of a remote connection and a colon
/// @param checkPhase refuse a file that an input phase is about to replace
/// Raises "A database named ('%s') already exists." for a name that is open on another path, "Cannot open file %1$s.
/// %2$s", and for a file of another version yld_Exception of error number 0 or 1.
YLD_API yld_Yld& openYld(const yld_String& name, const yld_String& path, bool readOnly, bool checkPhase);
/// Makes a database and opens it for writing, without a lock file. A database that stood at the path is replaced;
/// any other file there is left alone.
/// @param path  empty means the name
/// Raises "A database named ('%s') already exists.", "The path '%s' has an existing sto associated with it.",
/// "Cannot create file %1$s. %2$s".
YLD_API yld_Yld& Yld(const yld_String& name, const yld_String& analysisTitle = yld_String(),
                     const yld_String& description = yld_String(), const yld_String& path = yld_String());
/// Keeps all changes on disk. For a read-only database it does nothing but warn "Database was opened read-only and
/// cannot be saved.".
YLD_API void saveYld(yld_Yld& yld);
/// Closes the file without saving, under all names by which it is open. A lock file stays; yld_Yld::close() removes it.
YLD_API void closeYld(yld_Yld& yld);
/// For programs that open a store by the inner classes: with no database open by openYld() or Yld(), but one store
/// open, that one, which is entered read-only under the name of its file. With one database open it gives an empty
/// object. Raises "The getActiveYld method can only be called if a single yld file is open.", "No yld files are open.".
YLD_API yld_Yld& getActiveYld();

#endif
