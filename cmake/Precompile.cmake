# qvl_precompile(target): Qt's headers take most of the time in which a source is compiled. Off by
# default, and in the presets that use Clang, so that a missing include is noticed.
function(qvl_precompile target)
  if(QVL_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE
      <QByteArray> <QDateTime> <QDomDocument> <QList> <QString> <algorithm> <functional> <memory>)
  endif()
endfunction()
