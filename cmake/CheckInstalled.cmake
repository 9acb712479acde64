# Installs the build tree BUILD below FOLDER, builds the project EXAMPLE against it as a user does,
# and runs it: the form that uic has compiled and the one that is loaded with the installed plug-in
# must be the same picture.
file(REMOVE_RECURSE ${FOLDER})
set(prefix ${FOLDER}/prefix)

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGV}\n${output}")
    endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
run(${CMAKE_COMMAND} -S ${EXAMPLE} -B ${FOLDER}/build -G ${GENERATOR}
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${FOLDER}/build)

file(GLOB_RECURSE plugin ${prefix}/libvelmora_designer.so ${prefix}/*/libvelmora_designer.so)
get_filename_component(plugins ${plugin}/../.. ABSOLUTE)
set(ENV{QT_PLUGIN_PATH} ${plugins})
set(ENV{QT_QPA_PLATFORM} offscreen)
run(${FOLDER}/build/appointment --picture ${FOLDER}/compiled.png)
run(${FOLDER}/build/appointment --picture ${FOLDER}/loaded.png --load ${EXAMPLE}/appointment.ui)
run(${CMAKE_COMMAND} -E compare_files ${FOLDER}/compiled.png ${FOLDER}/loaded.png)
