# Links companions that were built elsewhere: found by name on CMAKE_PREFIX_PATH, used through the contract headers.
foreach(companion tavorossproxy tavorobizmodel)
    find_library(TAVORO_${companion}_LIBRARY ${companion}${TAVORO_SUFFIX} REQUIRED)
    add_library(${companion} SHARED IMPORTED GLOBAL)
    set_target_properties(${companion} PROPERTIES IMPORTED_LOCATION ${TAVORO_${companion}_LIBRARY})
    target_link_libraries(${companion} INTERFACE Tavoro::Contracts)
endforeach()
add_library(Tavoro::SSProxy ALIAS tavorossproxy)
add_library(Tavoro::BizModel ALIAS tavorobizmodel)
