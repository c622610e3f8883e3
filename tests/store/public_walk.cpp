#include "public_walk.h"

#include <vector>

PublicWalk PublicWalk::of(const std::string& path, bool forWriting, long long patience)
{
    PublicWalk seen(patience);
    yld_Yld& database = openYld(path.c_str(), !forWriting);
    try {
        seen.walk(database);
        if (forWriting) seen.write(database);
    } catch (const Enough&) {
    } catch (...) {
        database.close();
        throw;
    }
    database.close();
    return seen;
}

// A little of each kind, by the side of what is there.
void PublicWalk::write(yld_Yld& database)
{
    database.setDescription("walked");
    yld_Part& part = database.Part("walker", yld_Enum::THREE_D, yld_Enum::DEFORMABLE_BODY);
    const int label = 1;
    const float origin[3] = {0.0F, 0.0F, 0.0F};
    yld_Sequence<yld_Sequence<float>> coordinates;
    coordinates.append(yld_Sequence<float>(origin, 3));
    part.addNodes(yld_Sequence<int>(&label, 1), coordinates);
    yld_Instance& instance = database.rootAssembly().Instance("walker-1", part);
    instance.NodeSet("walked", yld_Sequence<int>(&label, 1));
    yld_Step& step = database.Step("walk", "", yld_Enum::TIME, 1.0);
    yld_Frame frame = step.Frame(1, 1.0);
    frame.FieldOutput("U", "", yld_Enum::VECTOR).addBulkData(yld_Enum::NODAL, instance, &label, 1, origin, 1, 3);
    step.HistoryRegion("walker", "", yld_HistoryPoint(instance.nodes(0)))
        .HistoryOutput("V", "", yld_Enum::SCALAR)
        .addData(0.5, 1.0);
    database.save();
}

template<class Number> void PublicWalk::add(const Number* numbers, long long count)
{
    if (!numbers || count <= 0) return;
    spend(count);
    for (long long i = 0; i < count; ++i) sum += static_cast<double>(numbers[i]);
}

template<class Number> void PublicWalk::add(const yld_Sequence<Number>& numbers)
{
    for (int i = 0; i < numbers.size(); ++i) add(numbers[i]);
}

void PublicWalk::add(const yld_SectionPoint& point)
{
    add(point.number());
    add(point.description());
}

void PublicWalk::walk(yld_Yld& database)
{
    walkHeader(database);
    walkJob(database);
    walkAttributes(database);
    walkUserData(database.userData());
    const yld_Assembly& assembly = database.rootAssembly();
    const yld_Sequence<yld_String> datumNames = assembly.datumCsyses().keys();
    yld_PartRepository& parts = database.parts();
    const yld_Sequence<yld_String> partNames = parts.keys();
    for (int i = 0; i < partNames.size(); ++i) walkPartOrInstance(parts.constGet(partNames[i]), datumNames);
    const yld_SectionCategoryRepository& categories = database.sectionCategories();
    const yld_Sequence<yld_String> categoryNames = categories.keys();
    for (int i = 0; i < categoryNames.size(); ++i) {
        const yld_SectionCategory& category = categories.constGet(categoryNames[i]);
        add(category.name());
        add(category.description());
        add(category.sectionPoints());
    }
    walkAssembly(assembly, datumNames);
    const yld_Sequence<yld_String> stepNames = database.steps().stepNames();
    for (int i = 0; i < stepNames.size(); ++i) walkStep(database.steps().get(stepNames[i]), assembly);
    if (frames > 0) add(database.getFrame(0.5).frameIndex());
    add(database.update());
}

void PublicWalk::walkHeader(const yld_Yld& database)
{
    for (const yld_String& text :
         {database.name(), database.path(), database.analysisTitle(), database.description(), database.globalJob(),
          database.shellGlobalModelToSolid(), database.solverInput(), database.topLevelSolverInput()}) {
        add(text);
    }
    add(database.databaseVersion());
    if (database.hasSectorDefinition()) {
        const yld_SectorDefinition sectors = database.sectorDefinition();
        add(sectors.symmetryAxis());
        add(sectors.numSymmetricSectors());
    }
}

void PublicWalk::walkJob(const yld_Yld& database)
{
    const yld_JobData job = database.jobData();
    for (const yld_String& text : {job.name(), job.version(), job.machineName()}) add(text);
    add(job.analysisCode());
    add(job.creationTime());
    add(job.modificationTime());
    add(job.precision());
    add(job.productAddOns());
    const yld_DiagnosticData diagnostics = database.diagnosticData();
    add(diagnostics.jobStatus());
    const yld_JobTime time = diagnostics.jobTime();
    for (const double seconds : {time.userTime(), time.systemTime(), time.wallclockTime()}) add(seconds);
    add(diagnostics.jobHistoryDescription());
    const yld_NumericalProblemSummary problems = diagnostics.numericalProblemSummary();
    add(problems.numberOfNegativeEigenvalues());
    add(problems.numberOfNumericalSingularities());
    add(problems.numberOfZeroPivots());
}

void PublicWalk::walkAttributes(yld_Yld& database)
{
    for (const int count : {database.boundaryConditions().size(), database.interactionProperties().size(),
                            database.contactControls().size(), database.interactions().size(),
                            database.predefinedFields().size(), database.loads().size(), database.constraints().size(),
                            database.fieldOutputRequests().size(), database.historyOutputRequests().size()}) {
        add(count);
    }
}

void PublicWalk::walkUserData(const yld_UserData& userData)
{
    yld_RepositoryIT<yld_String, yld_UserXYData> entry(userData.xyDataObjects());
    for (entry.first(); !entry.isDone(); entry.next()) {
        const yld_UserXYData& curve = entry.currentValue();
        for (const yld_String& text : {curve.name(), curve.sourceFileName(), curve.sourceDescription(),
                                       curve.contentDescription(), curve.positionDescription(), curve.xAxisLabel(),
                                       curve.yAxisLabel(), curve.legendLabel(), curve.description()}) {
            add(text);
        }
        add(curve.sourceType());
        const yld_Sequence<yld_Sequence<float>>& data = curve.getData();
        spend(data.size());
        rows += data.size();
        add(data);
    }
}

void PublicWalk::walkSet(const yld_Set& set, bool ofAssembly)
{
    add(set.name());
    add(set.isInternal());
    add(set.isUnsorted());
    add(set.type());
    if (set.size() == 0) return;
    spend(set.size());
    members += set.size();
    const auto walkNodes = [this](const yld_SequenceNode& list) {
        for (int i = 0; i < list.size(); ++i) add(list[static_cast<unsigned>(i)].label());
    };
    const auto walkElements = [this](const yld_SequenceElement& list) {
        for (int i = 0; i < list.size(); ++i) add(list[static_cast<unsigned>(i)].label());
    };
    const yld_Sequence<yld_String> instances = set.instanceNames();
    add(instances);
    for (int i = 0; i < instances.size(); ++i) {
        if (set.type() == yld_Enum::NODE_SET) walkNodes(set.nodes(instances[i]));
        if (set.type() != yld_Enum::NODE_SET) walkElements(set.elements(instances[i]));
        if (set.type() == yld_Enum::SURFACE_SET) add(set.faces(instances[i]));
    }
    // What belongs to several instances is handed out by their names alone.
    if (ofAssembly) return;
    if (set.type() == yld_Enum::NODE_SET) walkNodes(set.nodes());
    if (set.type() != yld_Enum::NODE_SET) walkElements(set.elements());
    if (set.type() == yld_Enum::SURFACE_SET) add(set.faces());
}

void PublicWalk::walkSets(const yld_SetRepository& sets, bool ofAssembly)
{
    const yld_Sequence<yld_String> names = sets.keys();
    for (int i = 0; i < names.size(); ++i) walkSet(sets.constGet(names[i]), ofAssembly);
}

void PublicWalk::walkEntity(const yld_DiscreteEntity& entity, bool isAssembly)
{
    add(entity.name());
    add(entity.type());
    add(entity.embeddedSpace());
    spend(entity.nodes().size());
    for (int i = 0; i < entity.nodes().size(); ++i) {
        const yld_Node node = entity.nodes(i);
        add(node.label());
        add(node.coordinates(), 3);
        add(entity.getNodeFromLabel(node.label()).index());
        ++nodes;
    }
    spend(entity.elements().size());
    for (int i = 0; i < entity.elements().size(); ++i) {
        const yld_Element element = entity.elements(i);
        add(element.label());
        add(element.type());
        add(element.geometryClass());
        add(element.shapeAttribute());
        add(element.instanceNames());
        add(element.sectionCategory().name());
        add(element.sectionCategory().sectionPoints());
        int count = 0;
        const int* corners = element.connectivity(count);
        add(corners, count);
        add(element.connectivity());
        add(entity.getElementFromLabel(element.label()).index());
        ++elements;
    }
    const yld_Sequence<yld_ElementClass>& classes = entity.elementClasses();
    for (int i = 0; i < classes.size(); ++i) {
        add(classes[i].typeLabel());
        add(classes[i].categoryLabel());
        add(classes[i].numElements());
        add(classes[i].numNodesPerElement());
        add(classes[i].numIntegrationPointsPerElement());
        add(classes[i].numFacesPerElement());
        add(classes[i].maxIntegrationPointsPerFace());
        ++elementClasses;
    }
    walkSets(entity.nodeSets(true, true), isAssembly);
    walkSets(entity.elementSets(true, true), isAssembly);
    walkSets(entity.surfaces(true), isAssembly);
}

template<class Entity>
void PublicWalk::walkPartOrInstance(const Entity& entity, const yld_Sequence<yld_String>& datumNames)
{
    walkEntity(entity, false);
    add(entity.solverInput());
    for (int i = 0; i < datumNames.size(); ++i) {
        if (entity.hasDatumCsys(datumNames[i])) add(entity.datumCsys(datumNames[i]).name());
    }
}

void PublicWalk::walkAssembly(const yld_Assembly& assembly, const yld_Sequence<yld_String>& datumNames)
{
    walkEntity(assembly, true);
    add(assembly.solverInput());
    for (int i = 0; i < datumNames.size(); ++i) {
        const yld_DatumCsys& csys = assembly.datumCsyses().constGet(datumNames[i]);
        add(csys.name());
        add(csys.type());
        for (const float* axis : {csys.xAxis(), csys.yAxis(), csys.zAxis(), csys.origin()}) add(axis, 3);
        yld_String summary;
        csys.summaryValue1(summary);
        add(summary);
        csys.summaryValue2(summary);
        add(summary);
        ++datums;
    }
    const yld_InstanceRepository& instances = assembly.instances();
    const yld_Sequence<yld_String> names = instances.keys();
    for (int i = 0; i < names.size(); ++i) {
        walkPartOrInstance(instances.constGet(names[i]), datumNames);
        add(instances.constGet(names[i]).partName());
    }
}

void PublicWalk::walkDofs(const yld_SequenceNodalDofs& list)
{
    for (int i = 0; i < list.size(); ++i) {
        add(list[i].dofs());
        dofs += list[i].dofs().size();
        walkSet(list[i].nset(), true);
    }
}

void PublicWalk::walkStep(yld_Step& step, const yld_Assembly& assembly)
{
    ++steps;
    for (const yld_String& text :
         {step.name(), step.description(), step.procedure(), step.previousStepName(), step.solverInput()}) {
        add(text);
    }
    for (const double number : {step.timePeriod(), step.totalTime(), step.mass(), step.acousticMass()}) add(number);
    for (const yld_Sequence<double>& numbers :
         {step.massCenter(), step.acousticMassCenter(), step.inertiaAboutCenter(), step.inertiaAboutOrigin()}) {
        add(numbers);
    }
    add(step.number());
    add(step.domain());
    add(step.nlgeom());
    add(step.isAnalysisStep());
    add(step.isPerturbation());
    add(step.retainedEigenModes());
    walkDofs(step.retainedNodalDofs());
    walkDofs(step.eliminatedNodalDofs());
    yld_RepositoryIT<yld_String, yld_LoadCase> loadCase(step.loadCases());
    for (loadCase.first(); !loadCase.isDone(); loadCase.next()) {
        add(loadCase.currentValue().name());
        add(step.findFrames(loadCase.currentValue(), 0.5));
        ++loadCases;
    }
    for (int i = 0; i < step.frames().size(); ++i) {
        // The step holds one frame at a time, and a look at another one of a pair may change which.
        const yld_Frame frame = step.frames(i);
        walkFrame(frame, assembly);
    }
    if (step.frames().size() > 0) {
        add(step.findFrames(0.5, yld_Enum::MATCH_BEFORE));
        add(step.getFrame(0.5).frameIndex());
    }
    walkHistory(step);
}

void PublicWalk::walkFrame(const yld_Frame& frame, const yld_Assembly& assembly)
{
    spend();
    ++frames;
    add(frame.frameIndex());
    add(frame.incrementNumber());
    add(frame.loadCase().name());
    add(frame.mode());
    add(frame.frameValue());
    add(frame.frequency());
    add(frame.description());
    add(frame.domain());
    add(frame.isImaginary());
    add(frame.cyclicModeNumber());
    if (frame.hasAssociatedFrame()) {
        add(frame.associatedFrame().frameIndex());
        ++pairs;
    }
    const yld_Sequence<yld_String> instances = assembly.instances().keys();
    const yld_Sequence<yld_String> names = frame.fieldOutputs().getFieldOutputNames();
    for (int n = 0; n < names.size(); ++n) {
        const yld_FieldOutput& field = frame.fieldOutputs().constGet(names[n]);
        walkField(field);
        walkLocations(field);
        for (int i = 0; i < instances.size(); ++i) walkSubsets(field, assembly.instances().constGet(instances[i]));
    }
}

void PublicWalk::walkField(const yld_FieldOutput& field)
{
    ++fields;
    add(field.name());
    add(field.description());
    add(field.type());
    add(field.subtype());
    add(field.isComplex());
    add(field.hasLocalCoordSystem());
    add(field.rows());
    add(field.cols());
    add(field.frameNumber());
    add(field.IsOrphan());
    add(field.validInvariants());
    add(field.componentLabels());
    add(field.fieldKeys());
    add(field.baseElementTypes());
    for (int i = 0; i < field.values().size(); ++i) {
        walkValue(field.values(i));
        ++values;
    }
    const yld_SequenceFieldBulkData& blocks = field.bulkDataBlocks();
    for (int i = 0; i < blocks.size(); ++i) walkBlock(blocks[i]);
}

void PublicWalk::walkValue(const yld_FieldValue& value)
{
    spend();
    add(value.position());
    add(value.type());
    add(value.precision());
    add(value.nodeLabel());
    add(value.elementLabel());
    add(value.integrationPoint());
    add(value.face());
    add(value.instance().name());
    add(value.sectionPoint());
    add(value.engineeringTensor());
    add(value.baseElementType());
    for (const yld_FieldValueData* data : {&value.data(), &value.localCoordSystemData()}) {
        add(data->floatData(), data->length());
        add(data->floatConjugate(), data->length());
        add(data->doubleData(), data->length());
        add(data->doubleConjugate(), data->length());
    }
    if (value.precision() == yld_Enum::DOUBLE_PRECISION) {
        add(value.localCoordSystemDouble());
    } else {
        add(value.localCoordSystem());
    }
    for (int which = yld_Enum::MAX_PRINCIPAL; which <= yld_Enum::OUTOFPLANE_PRINCIPAL; ++which) {
        add(value.invariant(static_cast<yld_Enum::yld_InvariantEnum>(which)));
    }
}

void PublicWalk::walkBlock(const yld_FieldBulkData& block)
{
    const long long length = block.length();
    for (const float* data : {block.data(), block.conjugateData()}) add(data, length * block.width());
    for (const double* data : {block.dataDouble(), block.conjugateDataDouble()}) add(data, length * block.width());
    add(block.localCoordSystem(), length * block.orientationWidth());
    add(block.localCoordSystemDouble(), length * block.orientationWidth());
    for (const void* data :
         {static_cast<const void*>(block.data()), static_cast<const void*>(block.conjugateData()),
          static_cast<const void*>(block.dataDouble()), static_cast<const void*>(block.conjugateDataDouble())}) {
        if (data) bulk += length * block.width();
    }
    if (block.localCoordSystem() || block.localCoordSystemDouble()) bulk += length * block.orientationWidth();
    add(block.nodeLabels(), length);
    add(block.elementLabels(), length);
    add(block.faces(), length);
    add(block.integrationPoints(), length);
    add(block.mises(), length);
    add(block.position());
    add(block.type());
    add(block.instance().name());
    add(block.baseElementType());
    add(block.sectionPoint());
    add(block.componentLabels());
    add(block.setType());
    add(block.valuesPerElement());
    add(block.numberOfNodes());
    add(block.numberOfElements());
}

long long PublicWalk::lookAt(const yld_FieldOutput& subset)
{
    const int size = subset.values().size();
    if (size > 0) {
        // Without components where values of its position are not read.
        const yld_FieldValue last = subset.values(size - 1);
        if (last.data().length() > 0) add(last.data()[0]);
    }
    add(subset.bulkDataBlocks().size());
    spend(1 + size);
    return size;
}

void PublicWalk::walkLocations(const yld_FieldOutput& field)
{
    for (int i = 0; i < field.locations().size(); ++i) {
        const yld_FieldLocation location = field.locations(i);
        ++locations;
        located += lookAt(field.getSubset(location));
        located += lookAt(field.getSubset(location.position()));
        for (int p = 0; p < location.sectionPoints().size(); ++p) {
            add(location.sectionPoints(p));
            located += lookAt(field.getSubset(location.sectionPoints(p)));
        }
    }
}

// Parts of a field, as far as the file has sets, elements and nodes to choose by.
void PublicWalk::walkSubsets(const yld_FieldOutput& field, const yld_Instance& instance)
{
    bool isOnSets = true;
    bool isSingle = true;
    const yld_SequenceFieldBulkData& blocks = field.bulkDataBlocks();
    for (int i = 0; i < blocks.size(); ++i) {
        isOnSets &= blocks[i].setType() != yld_Enum::UNKNOWN_SET;
        isSingle &= blocks[i].precision() == yld_Enum::SINGLE_PRECISION;
    }
    const auto walkSets = [&](const yld_SetRepository& sets) {
        const yld_Sequence<yld_String> names = sets.keys();
        for (int i = 0; i < names.size(); ++i) chosen += lookAt(field.getSubset(sets.constGet(names[i])));
    };
    // What is of the whole model is on nothing that could choose a part of it.
    if (!isOnSets) return;
    walkSets(instance.nodeSets(true, true));
    walkSets(instance.elementSets(true, true));
    // Systems are compared in single precision alone.
    if (isSingle) chosen += lookAt(field.getSubset(yld_Sequence<yld_Sequence<float>>()));
    if (instance.nodes().size() > 0) chosen += lookAt(field.getSubset(instance.nodes(0)));
    if (instance.elements().size() > 0) chosen += lookAt(field.getSubset(instance.elements(0)));
    chosen += lookAt(field.getSubset(instance));
    chosen += lookAt(field.getSubset(yld_String("HEX8")));
}

void PublicWalk::walkHistory(const yld_Step& step)
{
    yld_RepositoryIT<yld_String, yld_HistoryRegionPers> entry(step.historyRegions());
    for (entry.first(); !entry.isDone(); entry.next()) {
        const yld_HistoryRegion& region = entry.currentValue();
        ++regions;
        add(region.name());
        add(region.description());
        add(region.loadCase().name());
        walkPoint(region.historyPoint());
        yld_RepositoryIT<yld_String, yld_HistoryOutput> output(region.historyOutputs());
        for (output.first(); !output.isDone(); output.next()) {
            walkCurve(output.currentValue());
            add(region.getSubset(output.currentValue().name()).historyOutputs().size());
        }
        add(region.getSubset(0.25, 0.75).historyOutputs().size());
    }
}

void PublicWalk::walkPoint(const yld_HistoryPoint& point)
{
    spend();
    add(point.longText());
    add(point.shortText());
    add(point.storedPosition());
    add(point.node().label());
    add(point.element().label());
    add(point.ipNumber());
    add(point.face());
    add(point.sectionPoint());
    add(point.region().name());
    add(point.instance().name());
    add(point.assembly().name());
    add(point.name());
}

void PublicWalk::walkCurve(const yld_HistoryOutput& curve)
{
    ++curves;
    add(curve.name());
    add(curve.description());
    add(curve.type());
    spend(1 + curve.dataSize());
    const yld_Sequence<yld_Sequence<float>> pairsOfCurve = curve.data();
    points += pairsOfCurve.size();
    add(pairsOfCurve);
    add(curve.conjugateData());
    const long long count = curve.dataSize();
    std::vector<double> times(static_cast<std::size_t>(count));
    std::vector<float> numbers(2 * times.size());
    curve.readData(0, count, times.data(), numbers.data(), numbers.data() + count);
    add(times.data(), count);
    add(numbers.data(), 2 * count);
    add(curve.getSubset(1.0).data().size());
    add(curve.getSubset(0.25, 2.0).data().size());
}
