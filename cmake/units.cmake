# Fewer, larger translation units: most of what a source costs is the headers that it shares with its neighbours, and the
# templates that each of them makes anew. What a source keeps to itself (in an unnamed namespace) then has to have a
# name that no other source of its unit has; a source that cannot is set apart with SKIP_UNITY_BUILD_INCLUSION.

# Sources of one folder lie in one unit, as long as it does not get too large.
function(yld_units_of folder)
    string(REPLACE "/" "_" unit ${folder})
    set(count 0)
    foreach(source IN LISTS ARGN)
        math(EXPR number "${count} / 10")
        math(EXPR count "${count} + 1")
        set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${unit}_${number})
    endforeach()
endfunction()

# Some warnings are wrong there: a source that is included is taken for a header, whose unnamed namespace would be a
# mistake; what the optimiser sees of far more code at once misleads it about copies of strings; and a local name may
# well be that of a function of a neighbour.
function(yld_large_units target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage -Wno-restrict -Wno-shadow -Wshadow=local)
endfunction()
