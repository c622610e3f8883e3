#include "yld_Yld.h"

#include "platform/attribute/ntsC_AnnotationClient.h"
#include "platform/model/mshK_AttributeKinds.h"
#include "platform/model/prtC_Enum.h"
#include "platform/result/fld_Enum.h"
#include "platform/sto/sto_Assembly.h"
#include "platform/sto/sto_ElementClass.h"
#include "platform/sto/sto_Mesh.h"
#include "platform/sto/sto_Model.h"
#include "platform/sto/sto_Part.h"
#include "platform/sto/sto_PartInstance.h"
#include "platform/sto/sto_Procedure.h"
#include "platform/sto/sto_Result.h"
#include "platform/sto/sto_Step.h"
#include "platform/sto/sto_StepContainer.h"
#include "platform/sto/sto_Sto.h"
#include "platform/sto/sto_StoContainer.h"
#include "platform/sto/sto_StoStep.h"
#include "platform/sto/sto_UserData.h"
#include "platform/store/lnk_Root.h"
#include "platform/text/msg_Format.h"
#include "platform/text/prg_WIP.h"
#include "yld/impl/base/yld_Convert.h"
#include "yld/impl/base/yld_Raise.h"
#include "yld/impl/life/yld_YldRepository.h"
#include "yld/impl/model/yld_Mesh.h"
#include "yld/impl/step/yld_FrameMatch.h"
#include "yld_AttributeRepository.h"
#include "yld_DiagnosticData.h"
#include "yld_EnumMap.h"
#include "yld_Exception.h"
#include "yld_JobData.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace {

// The model side of a step that a writer of results makes: what is known of the analysis is the domain, and for a few
// procedures the keyword.
sto_StoStep makeModelStep(const sto_Model& model, int position, const yld_String& name, const yld_String& description,
                          yld_Enum::yld_DomainEnum domain, double timePeriod, const yld_String& previous,
                          const yld_String& procedure)
{
    const auto perturbation = [&](int number) {
        return model.PerturbationStep(position, name, description, number, timePeriod, previous);
    };
    const auto general = [&](int number) {
        return model.GeneralStep(position, name, description, number, timePeriod, previous, 1);
    };
    sto_StoStep step;
    if (domain == yld_Enum::MODAL) {
        step = perturbation(procedure.compare("*BUCKLE") == 0 ? sto_Procedure::BUCKLE : sto_Procedure::FREQUENCY);
    } else if (domain == yld_Enum::FREQUENCY) {
        step = perturbation(sto_Procedure::RANDOM_RESPONSE);
    } else if (timePeriod > 0.0) {
        step = general(procedure.compare("*STATIC, RIKS") == 0 ? sto_Procedure::STATIC_RIKS : sto_Procedure::STATIC);
    } else {
        step = perturbation(sto_Procedure::STATIC_PERTURBATION);
    }
    step.setDomain(domain);
    return step;
}

bool isWritable(const sto_Sto& store) { return store.file() && store.file()->isWritable(); }

void requirePoint(const yld_Sequence<float>& point)
{
    if (point.size() != 3) yld_raise("A point of the symmetry axis needs 3 coordinates.");
}

// What a repository of the database's own lacks comes in when it is asked for.
template<class Repository> Repository& readUnshared(shr_COW<Repository>& repository)
{
    Repository& own = repository.Get();
    own.Read();
    return own;
}

} // namespace

// An unknown type gives the tree's default value, and no error.
struct yld_Yld::ApiExtensions : shr_Btree<yld_Enum::yld_ApiType, yld_ApiExtension>
{
    const yld_ApiExtension& constGet(yld_Enum::yld_ApiType type) const
    {
        const auto* const node = ConstFind(type);
        return node ? node->Value() : DefaultValue();
    }
    yld_ApiExtension* find(yld_Enum::yld_ApiType type)
    {
        auto* const node = Find(type);
        return node ? &node->Value() : nullptr;
    }
};

// How the analysis was set up. A copy shares each kind by itself.
struct yld_Yld::Attributes
{
    Attributes() = default;
    explicit Attributes(const sto_Model& model)
    {
#define YLD_BIND(stored, value, repository, member, text)                                                              \
    member = shr_COW<yld_##repository##Repository>(yld_##repository##Repository(model));
        MSHK_ATTRIBUTE_KINDS(YLD_BIND)
#undef YLD_BIND
    }
#define YLD_MEMBER(stored, value, repository, member, text)                                                            \
    shr_COW<yld_##repository##Repository> member{yld_##repository##Repository()};
    MSHK_ATTRIBUTE_KINDS(YLD_MEMBER)
#undef YLD_MEMBER
};

yld_Yld::yld_Yld()
    : m_sto(sto_Sto()), m_steps(yld_StepRepository()), m_parts(yld_PartRepository()),
      m_sectionCategories(yld_SectionCategoryRepository()), m_rootAssembly(yld_Assembly()), m_attributes(Attributes()),
      m_apiExtensions(ApiExtensions())
{
}

yld_Yld::yld_Yld(yld_String name, yld_String analysisTitle, yld_String description, yld_String path,
                 const sto_Sto& store, bool readOnly, bool makeUserData)
    : yld_Yld(name, analysisTitle, description, path, store, store.model(), readOnly, makeUserData)
{
}

yld_Yld::yld_Yld(const yld_String& name, const yld_String& analysisTitle, const yld_String& description,
                 const yld_String& path, const sto_Sto& store, const sto_Model& model, bool readOnly, bool makeUserData)
    : m_sto(store), m_name(name), m_description(description), m_analysisTitle(analysisTitle), m_path(path),
      m_steps(yld_StepRepository(store)), m_parts(yld_PartRepository(model)),
      m_sectionCategories(yld_SectionCategoryRepository()),
      m_rootAssembly(yld_Assembly(yld_String(model.rootAssembly().name().c_str()), model.rootAssembly(), model)),
      m_attributes(Attributes(model)), m_readOnly(readOnly), m_apiExtensions(ApiExtensions()),
      m_globalJob(model.globalJob().c_str())
{
    if (store.hasUserData()) {
        m_userData = yld_UserData(store.userData());
    } else if (makeUserData && isWritable(store)) {
        m_userData = yld_UserData(m_sto.Get().UserData());
    }
}

yld_Yld::yld_Yld(const yld_Yld&) = default;
yld_Yld& yld_Yld::operator=(const yld_Yld&) = default;
yld_Yld::~yld_Yld() = default;

int yld_Yld::databaseVersion() const
{
    return yld_guard([&] { return m_sto.ConstGet().version(); });
}

void yld_Yld::setAnalysisTitle(const yld_String& title)
{
    yld_guard([&] { m_sto.ConstGet().model().setModelTitle(title.cStr()); });
    m_analysisTitle = title;
}

void yld_Yld::setDescription(const yld_String& description)
{
    yld_guard([&] { m_sto.Get().setDescription(description); });
    m_description = description;
}

void yld_Yld::setGlobalJob(const yld_String& job)
{
    yld_guard([&] { m_sto.ConstGet().model().setGlobalJob(job.cStr()); });
    m_globalJob = job;
}

void yld_Yld::setShellGlobalModelToSolid(bool shellToSolid)
{
    yld_guard([&] { m_sto.ConstGet().model().setShellToSolid(shellToSolid); });
    m_shellToSolid = shellToSolid;
}

yld_String yld_Yld::solverInput() const
{
    return yld_guard([&] { return yld_String(m_sto.ConstGet().model().solverInput().c_str()); });
}

void yld_Yld::setSolverInput(const yld_String& text)
{
    yld_guard([&] { m_sto.ConstGet().model().setSolverInput(text.cStr()); });
}

yld_String yld_Yld::topLevelSolverInput() const
{
    return yld_guard([&] { return yld_String(m_sto.ConstGet().model().topLevelSolverInput().c_str()); });
}

void yld_Yld::setTopLevelSolverInput(const yld_String& text)
{
    yld_guard([&] { m_sto.ConstGet().model().setTopLevelSolverInput(text.cStr()); });
}

void yld_Yld::setOnlyHasUserDefinedData(bool only)
{
    if (isWritable(m_sto.ConstGet())) yld_guard([&] { m_sto.Get().setOnlyHasUserDefinedData(only); });
    m_onlyHasUserDefinedData = only;
}

void yld_Yld::setCyclicSymmetry(const yld_Sequence<float>& point1, const yld_Sequence<float>& point2, int sectors,
                                const yld_Sequence<yld_String>& tieConstraints)
{
    requirePoint(point1);
    requirePoint(point2);
    const float start[] = {point1[0], point1[1], point1[2]};
    const float end[] = {point2[0], point2[1], point2[2]};
    if (std::equal(std::begin(start), std::end(start), std::begin(end))) {
        yld_raise("The points of the symmetry axis coincide.");
    }
    if (sectors < 1) yld_raise("The number of sectors must be positive.");
    const std::vector<std::string> names = yld_Convert::texts(tieConstraints);
    yld_guard([&] {
        sto_Model model = m_sto.ConstGet().model();
        model.DefineCyclicSymmetry(start, end, sectors);
        model.setCyclicSymmTieConstraints(names);
    });
}

bool yld_Yld::hasSectorDefinition() const
{
    return yld_guard([&] { return m_sto.ConstGet().model().HasSectorDefinition(); });
}

yld_SectorDefinition yld_Yld::sectorDefinition() const
{
    return yld_guard([&] { return yld_SectorDefinition(m_sto.ConstGet()); });
}

sto_Sto yld_Yld::sto() const { return m_sto.ConstGet(); }

mshK_Model yld_Yld::model() const
{
    return yld_guard([&] { return *m_sto.ConstGet().model().model(); });
}

void yld_Yld::extendApi(yld_Enum::yld_ApiType type, const yld_ApiExtension& extension)
{
    if (isWritable(m_sto.ConstGet())) {
        yld_guard([&] {
            sto_Sto& store = m_sto.Get();
            sto_ApiExtension stored;
            stored.m_type = type;
            stored.m_name = extension.name().cStr();
            stored.m_content = extension.content().cStr();
            stored.m_sto = store.shortCut();
            stored.m_model = store.model().shortCut();
            store.ExtendApi(stored);
        });
    }
    m_apiExtensions.Get().InsertUnlessMember(type, extension);
}

yld_ApiExtension yld_Yld::apiExtension(yld_Enum::yld_ApiType type) const
{
    return m_apiExtensions.ConstGet().constGet(type);
}

yld_ApiExtension* yld_Yld::findApiExtension(yld_Enum::yld_ApiType type) { return m_apiExtensions.Get().find(type); }

bool yld_Yld::isClosed() const { return !yld_YldRepository::Instance().isMember(m_name); }

void yld_Yld::read() const
{
    if (m_dataRead) return;
    yld_guard([&] {
        const sto_Model model = m_sto.ConstGet().model();
        readModel(model);
        m_userData.userXYData();
        if (!m_onlyHasUserDefinedData) readSteps(model);
    });
    m_dataRead = true;
}

void yld_Yld::readModel(const sto_Model& model) const
{
    readParts(model);
    readSectionCategories(model.rootAssembly());
    readAssembly();
}

void yld_Yld::readParts(const sto_Model& model) const
{
    yld_PartRepository& parts = m_parts.Get();
    for (int i = 0; i < model.numParts(); ++i) {
        const sto_Part part = model.part(i);
        const yld_String name(part.name().c_str());
        yld_MeshHandle mesh(part.hasMesh() ? new yld_Mesh(part.mesh(), name, false) : new yld_Mesh(name));
        parts.insert(name, yld_Part(name, mapDimension(static_cast<fld_DimensionEnm>(part.space())),
                                    mapPartType(static_cast<prtC_PartTypeEnm>(part.type())), part, mesh));
    }
}

void yld_Yld::readSectionCategories(const sto_Assembly& assembly) const
{
    yld_SectionCategoryRepository& categories = m_sectionCategories.Get();
    for (int i = 0; i < assembly.numInstances(); ++i) {
        const sto_PartInstance instance = assembly.instance(i);
        try {
            const sto_Mesh mesh = instance.mesh();
            const sto_ElementData elements = mesh.elementData();
            for (int c = 0; c < elements.numClasses(); ++c) {
                const sto_ElementClass elementClass = elements.elementClass(c);
                const int* labels = elementClass.userElementLabels();
                if (elementClass.numElements() == 0 || !labels || labels[0] < 0) continue;
                yld_String description("SectionCategory for element type ");
                description += elementClass.typeLabel().c_str();
                description += " in part ";
                description += instance.name().c_str();
                categories.insert(yld_String(elementClass.categoryLabel().c_str()),
                                  yld_SectionCategory(elementClass, description));
            }
        } catch (const exc_Exception&) {
            prg_WIPBase::Error(msg_Format("Error reading SectionCategories."), 0);
        }
    }
}

void yld_Yld::readAssembly() const
{
    yld_Assembly& root = m_rootAssembly.Get();
    root.ReadMesh();
    root.ReadInstances();
    root.ReadSets(m_assemblyRead);
}

void yld_Yld::readSteps(const sto_Model& model) const
{
    try {
        const sto_StepContainer steps = m_sto.ConstGet().result().steps();
        yld_String previous;
        for (int i = 0; i < steps.size(); ++i) {
            const yld_String key(steps.key(i));
            readStep(model, key, previous);
            previous = key;
        }
    } catch (...) {
        // A later try begins anew and fails with the same text.
        m_steps.Get() = yld_StepRepository(m_sto.ConstGet());
        throw;
    }
}

bool yld_Yld::readStep(const sto_Model& model, const yld_String& name, const yld_String& previous) const
{
    const sto_Step step = m_sto.ConstGet().result().step(name);
    const sto_StoStep modelStep = step.modelStep();
    const int domain = modelStep.getDomain();
    const auto publicDomain =
        domain >= 1 && domain <= 3 ? static_cast<yld_Enum::yld_DomainEnum>(domain) : yld_Enum::TIME;
    const shr_ArrayCOW<sto_Assembly> assembly(model.rootAssembly());
    m_steps.Get().file(yld_Step(name, step, yld_String(modelStep.description()), assembly, publicDomain, previous,
                                yld_String(sto_Procedure::keyword(modelStep.getProcedureType()))),
                       yld_String());
    return true;
}

yld_StepRepository& yld_Yld::steps()
{
    read();
    return m_steps.Get();
}

const yld_StepRepository& yld_Yld::steps() const
{
    read();
    return m_steps.ConstGet();
}

yld_PartRepository& yld_Yld::parts()
{
    read();
    return m_parts.Get();
}

yld_SectionCategoryRepository& yld_Yld::sectionCategories()
{
    read();
    return m_sectionCategories.Get();
}

const yld_SectionCategoryRepository& yld_Yld::sectionCategories() const
{
    read();
    return m_sectionCategories.ConstGet();
}

yld_Assembly& yld_Yld::rootAssembly()
{
    read();
    return m_rootAssembly.Get();
}

const yld_Assembly& yld_Yld::constRootAssembly() const
{
    if (!m_dataRead) yld_guard([&] { readModel(m_sto.ConstGet().model()); });
    return m_rootAssembly.ConstGet();
}

#define YLD_ACCESSOR(stored, value, repository, member, text)                                                          \
    yld_##repository##Repository& yld_Yld::member()                                                                    \
    {                                                                                                                  \
        read();                                                                                                        \
        return readUnshared(m_attributes.Get().member);                                                                \
    }
MSHK_ATTRIBUTE_KINDS(YLD_ACCESSOR)
#undef YLD_ACCESSOR

yld_UserData& yld_Yld::userData()
{
    read();
    return m_userData;
}

const yld_UserData& yld_Yld::userData() const
{
    read();
    return m_userData;
}

yld_JobData yld_Yld::jobData() const
{
    return yld_guard([this] {
        const sto_Sto& store = m_sto.ConstGet();
        const yld_String version = store.analysisVersion();
        yld_String upper = version;
        upper.toUpper();
        const auto code = upper.find("STANDARD") >= 0   ? yld_Enum::ZANTRA_STANDARD
                          : upper.find("EXPLICIT") >= 0 ? yld_Enum::ZANTRA_EXPLICIT
                                                        : yld_Enum::UNKNOWN_ANALYSIS_CODE;
        yld_Sequence<yld_Enum::yld_ProductAddOnEnum> addOns;
        for (const int addOn : store.productAddOns()) addOns.append(static_cast<yld_Enum::yld_ProductAddOnEnum>(addOn));
        return yld_JobData(m_name, code, version, store.creationTime(), store.modificationTime(), yld_String(),
                           yld_Enum::SINGLE_PRECISION, addOns);
    });
}

yld_DiagnosticData yld_Yld::diagnosticData() const
{
    try {
        const std::string stored = lnk_Root::Fetch().GetPersistentName(m_sto.ConstGet().FileName().cStr());
        const sto_Sto store = sto_StoContainer().getByPersName(shr_String(stored.c_str()));
        return yld_DiagnosticData(store.ConstGetDiagnosticData());
    } catch (const exc_Exception&) {
        return yld_DiagnosticData();
    }
}

yld_Part& yld_Yld::Part(const yld_String& name, yld_Enum::yld_DimensionEnum dimension, yld_Enum::yld_PartTypeEnum type)
{
    read();
    if (parts().isMember(name)) {
        yld_raise("A part named \"%s\" already exists.", name);
    }
    return parts().Part(name, dimension, type);
}

yld_SectionCategory& yld_Yld::SectionCategory(const yld_String& name, const yld_String& description)
{
    return sectionCategories().SectionCategory(name, description);
}

yld_Step& yld_Yld::Step(const yld_String& name, const yld_String& description, yld_Enum::yld_DomainEnum domain,
                        double timePeriod, const yld_String& previousStepName, const yld_String& procedure,
                        double totalTime)
{
    yld_StepRepository& all = steps();
    if (!previousStepName.empty() && !all.isMember(previousStepName) && previousStepName.compare("Initial") != 0) {
        yld_raise("Previous step \"%s\" not found.", previousStepName);
    }
    if (all.isMember(name)) {
        yld_raise("A Step named \"%s\" already exists.", name);
    }
    const int position = all.size();
    const sto_Sto store = m_sto.ConstGet();
    const sto_Model model = store.model();
    const sto_StoStep modelStep = makeModelStep(
        model, position, name, description, domain, timePeriod,
        previousStepName.compare("Initial") == 0 ? yld_String(stpC_InitialStepName()) : previousStepName, procedure);
    double begin = totalTime;
    if (begin < 0.0) {
        begin = 0.0;
        if (position > 0) {
            const yld_Step& last = all.at(position - 1);
            begin = last.totalTime();
            if (last.timePeriod() > 0.0) begin += last.timePeriod();
        }
    }
    sto_Step step = store.result().Step(name, modelStep, modelStep.previousName());
    step.setTotalTime(begin);
    step.FieldStep();
    step.HistoryStep();
    const shr_ArrayCOW<sto_Assembly> assembly(model.rootAssembly());
    all.file(yld_Step(name, step, description, assembly, domain, previousStepName,
                      yld_String(sto_Procedure::keyword(modelStep.getProcedureType()))),
             previousStepName);
    return all.get(name);
}

yld_Frame yld_Yld::getFrame(double value, yld_Enum::yld_MatchEnum match)
{
    yld_StepRepository& all = steps();
    yld_FrameMatch search(value, match);
    int foundStep = -1;
    int foundFrame = -1;
    for (int s = 0; s < all.size(); ++s) {
        yld_Step& step = all.at(s);
        const double begin = step.totalTime();
        for (int f = 0; f < step.frames().size(); ++f) {
            float time = static_cast<float>(step.frames().constGet(f).frameValue());
            if (begin > 0.0) time = static_cast<float>(static_cast<double>(time) + begin);
            if (!search.isBetter(static_cast<double>(time))) continue;
            foundStep = s;
            foundFrame = f;
        }
    }
    if (foundStep < 0) yld_raise("Frame not found.");
    return all.at(foundStep).frames(foundFrame);
}

bool yld_Yld::update()
{
    if (!m_dataRead) return false;
    return yld_guard([&] {
        const sto_Sto store = m_sto.ConstGet();
        if (!isWritable(store)) store.file()->refresh();
        const sto_StepContainer stored = store.result().steps();
        bool result = false;
        yld_String previous;
        for (int i = 0; i < stored.size(); ++i) {
            const yld_String key(stored.key(i));
            if (!m_steps.ConstGet().isMember(key)) {
                readStep(store.model(), key, previous);
                result = true;
            } else {
                // The answer of the last step stands for all.
                result = m_steps.Get().get(key).update();
            }
            previous = key;
        }
        return result;
    });
}

void yld_Yld::save(yld_String path)
{
    if (!path.empty() && path.compare(m_path) != 0) {
        yld_raise("YLD not saved. Changing the path is not allowed.");
    }
    try {
        m_sto.ConstGet().result().steps().flush();
        sto_Sto& store = m_sto.Get();
        store.Save();
        store.FlushDatabase();
    } catch (const exc_Exception& failure) {
        yld_raise("Database save failed. %s", failure.what());
    }
}

void yld_Yld::close()
{
    // A copy: the registry's entry, and with it this object, goes in the call.
    const yld_String name = m_name;
    const std::string stored = lnk_Root::GetPersistentName(m_sto.ConstGet().FileName().cStr());
    ntsC_AnnotationClient::Instance().ContainerClosing(
        "stoCont['" + stored + "'].userData['default userData'].annotations", 0);
    yld_YldRepository::Instance().remove(name);
}
