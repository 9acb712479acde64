# Installs the library below FOLDER and uses it as others do: by CMake with and without Qt, for release
# and for debugging, by pkg-config, from a form that uic has compiled and from the same one loaded with
# the plug-in, each header by itself with both compilers. KIND static takes the build tree BUILD,
# shared one of its own, for debugging, that is kept for the next time. VERSION is the one of all.
set(prefix ${FOLDER}/prefix)
set(examples ${SOURCE}/examples)
file(REMOVE_RECURSE ${prefix})

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGV}\n${output}")
    endif()
endfunction()

# build_project(FOLDER SOURCE "OPTIONS" TARGET...): all targets, or those.
function(build_project folder source options)
    run(${CMAKE_COMMAND} -S ${source} -B ${folder} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
        -DCMAKE_PREFIX_PATH=${prefix} ${options})
    list(PREPEND ARGN --target)
    if(ARGC EQUAL 3)
        set(ARGN)
    endif()
    run(${CMAKE_COMMAND} --build ${folder} ${ARGN})
endfunction()

if(KIND STREQUAL shared)
    set(BUILD ${FOLDER}/library)
    build_project(${BUILD} ${SOURCE}
        "-DBUILD_SHARED_LIBS=ON;-DCMAKE_BUILD_TYPE=Debug;-DCMAKE_CXX_FLAGS_DEBUG=-O0"
        velmora_designer velmora_dropdown velmora_proppages)
endif()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
file(GLOB_RECURSE plugin ${prefix}/*/libvelmora_designer.so)
file(GLOB_RECURSE library ${prefix}/*/libvelmora_qt.so)
get_filename_component(plugins ${plugin}/../.. ABSOLUTE)
set(ENV{QT_PLUGIN_PATH} ${plugins})
set(ENV{QT_QPA_PLATFORM} offscreen)

set(outside ${SOURCE}/tests/installed)
build_project(${FOLDER}/core ${outside} "-DPART=Core;-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON")
run(${FOLDER}/core/outside)
foreach(type Release Debug)
    build_project(${FOLDER}/qt-${type} ${outside}
        "-DPART=Qt;-DFORM=${examples}/qt_installed/appointment.ui;-DCMAKE_BUILD_TYPE=${type}")
    run(${FOLDER}/qt-${type}/outside)
endforeach()

file(GLOB_RECURSE package ${prefix}/*/velmora-calendar.pc)
get_filename_component(packages ${package} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${packages})
foreach(pair ${outside}/core.cpp=velmora-calendar
        ${examples}/qt_minimal/main.cpp=velmora-calendar-qt6)
    string(REPLACE = ";" pair ${pair})
    list(GET pair 0 source)
    list(GET pair 1 package)
    run(bash -c "[[ $(pkg-config --modversion ${package}) == ${VERSION} ]]")
    run(bash -c "${COMPILER} ${source} $(pkg-config --cflags --libs ${package}) -o ${FOLDER}/${package}")
endforeach()

if(KIND STREQUAL shared)
    run(${SOURCE}/scripts/check-exports ${library} ${prefix}/include)
    string(REGEX MATCH "^[0-9]+\\.[0-9]+" soversion ${VERSION})
    run(bash -c "objdump -p ${library} | grep -q 'SONAME *libvelmora_qt.so.${soversion}$'")
    run(${SOURCE}/scripts/check-headers ${prefix} ${FOLDER}/headers.passed ${COMPILER} clang++)
else()
    build_project(${FOLDER}/example ${examples}/qt_installed "")
    run(${FOLDER}/example/appointment --picture ${FOLDER}/compiled.png)
    run(${FOLDER}/example/appointment --picture ${FOLDER}/loaded.png
        --load ${examples}/qt_installed/appointment.ui)
    run(${CMAKE_COMMAND} -E compare_files ${FOLDER}/compiled.png ${FOLDER}/loaded.png)
endif()
