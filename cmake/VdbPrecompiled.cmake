# What nearly every source includes of Qt is parsed once, in place of some two hundred times. A source still includes what
# it uses: the preset "package" builds the module without, as hosts do that take it into their own tree.
# CMAKE_DISABLE_PRECOMPILE_HEADERS turns all of it off.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/precompiled.cpp CONTENT "// Compiles the headers that are parsed once.\n")

# A compiler takes them for a target with the same options and no fewer definitions: these have the fewest.
function(vdb_precompile name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBS;HEADERS")
  add_library(${name} OBJECT ${PROJECT_BINARY_DIR}/precompiled.cpp)
  vdb_configure_target(${name})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_link_libraries(${name} PRIVATE ${arg_LIBS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

set(coreHeaders
  <QBuffer> <QByteArray> <QCoreApplication> <QDateTime> <QDir> <QElapsedTimer> <QFile> <QHash> <QJsonArray> <QJsonDocument>
  <QJsonObject> <QList> <QPointer> <QRegularExpression> <QSet> <QString> <QStringList> <QTemporaryDir> <QTimer> <QVariant>
  <QNetworkAccessManager> <QNetworkReply> <QNetworkRequest> <QUrl>)
vdb_precompile(vdbPrecompiledCore LIBS Qt6::Core Qt6::Network HEADERS ${coreHeaders})
vdb_precompile(vdbPrecompiledWidgets
  LIBS Qt6::Core Qt6::Network Qt6::Positioning Qt6::Gui Qt6::Widgets
  HEADERS ${coreHeaders}
    <QApplication> <QComboBox> <QImage> <QLabel> <QLineEdit> <QMessageBox> <QPainter> <QPushButton> <QScreen> <QTableView>
    <QTextEdit> <QVBoxLayout>)
