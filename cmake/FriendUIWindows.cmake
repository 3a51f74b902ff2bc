# What the programs need beside them on Windows, and what Windows wants to know of them.
# Nothing here does anything elsewhere.

set(FRIENDUI_RUNTIME_DLLS) # beside the executables
set(FRIENDUI_RUNTIME_PLUGINS) # FOLDER|FILE pairs

if(WIN32)
    foreach(library Core Gui Widgets Network Sql)
        list(APPEND FRIENDUI_RUNTIME_DLLS "$<TARGET_FILE:Qt5::${library}>")
    endforeach()
    foreach(plugin
            platforms|QWindowsIntegrationPlugin platforms|QOffscreenIntegrationPlugin
            styles|QWindowsVistaStylePlugin sqldrivers|QSQLiteDriverPlugin
            imageformats|QJpegPlugin imageformats|QGifPlugin imageformats|QICOPlugin)
        string(REGEX REPLACE "^.*[|]" "" name "${plugin}")
        string(REGEX REPLACE "[|].*$" "" folder "${plugin}")
        if(TARGET Qt5::${name})
            list(APPEND FRIENDUI_RUNTIME_PLUGINS "${folder}|$<TARGET_FILE:Qt5::${name}>")
        else()
            # Configurations of Qt without CMake files for this plug-in.
            get_target_property(core Qt5::Core LOCATION)
            get_filename_component(root "${core}" DIRECTORY)
            string(REGEX REPLACE "^Q(.*)Plugin$" "\\1" file "${name}")
            string(TOLOWER "q${file}" file)
            string(REGEX REPLACE "integration$|driver$" "" file "${file}")
            if(EXISTS "${root}/../plugins/${folder}/${file}.dll")
                list(APPEND FRIENDUI_RUNTIME_PLUGINS "${folder}|${root}/../plugins/${folder}/${file}.dll")
            endif()
        endif()
    endforeach()
    if(TARGET jsoncpp_lib)
        get_target_property(type jsoncpp_lib TYPE)
        if(type STREQUAL SHARED_LIBRARY)
            list(APPEND FRIENDUI_RUNTIME_DLLS "$<TARGET_FILE:jsoncpp_lib>")
        endif()
    endif()
    if(MINGW)
        foreach(library libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
            execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${library}.dll
                OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
            if(NOT IS_ABSOLUTE "${file}")
                find_file(RUNTIME_${library} ${library}.dll
                    PATHS /usr/x86_64-w64-mingw32/lib NO_CMAKE_FIND_ROOT_PATH)
                get_filename_component(compiler "${CMAKE_CXX_COMPILER}" DIRECTORY)
                if(NOT RUNTIME_${library})
                    find_file(RUNTIME_${library} ${library}.dll PATHS "${compiler}" NO_CMAKE_FIND_ROOT_PATH)
                endif()
                set(file "${RUNTIME_${library}}")
            endif()
            if(NOT EXISTS "${file}")
                message(FATAL_ERROR "The compiler's ${library}.dll is not found")
            endif()
            list(APPEND FRIENDUI_RUNTIME_DLLS "${file}")
        endforeach()
    endif()
endif()

# The build folder's bin/ as a place to start programs from.
function(friendui_copy_runtime)
    if(NOT WIN32)
        return()
    endif()
    set(stamp "${CMAKE_CURRENT_BINARY_DIR}/runtime.stamp")
    set(copies)
    foreach(file ${FRIENDUI_RUNTIME_DLLS} $<$<BOOL:${FRIENDUI_TESTS}>:$<TARGET_FILE:Qt5::Test>>)
        list(APPEND copies COMMAND "${CMAKE_COMMAND}" -E copy_if_different
            "${file}" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    endforeach()
    foreach(pair ${FRIENDUI_RUNTIME_PLUGINS})
        string(REGEX REPLACE "^[^|]*[|]" "" file "${pair}")
        string(REGEX REPLACE "[|].*$" "" folder "${pair}")
        list(APPEND copies
            COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${folder}"
            COMMAND "${CMAKE_COMMAND}" -E copy_if_different
            "${file}" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${folder}")
    endforeach()
    add_custom_command(OUTPUT "${stamp}" ${copies}
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        COMMENT "Copying the libraries of the run time" VERBATIM)
    add_custom_target(runtime ALL DEPENDS "${stamp}")
endfunction()
