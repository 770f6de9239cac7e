<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Complex name</source>
        <translation>Nombre del complejo</translation>
    </message>
    <message>
        <source>Venue/room name</source>
        <translation>Recinto/sala</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ciudad</translation>
    </message>
    <message>
        <source>General comment</source>
        <translation>Comentario general</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>País</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>Editing date (UTC)</source>
        <translation>Editado el (UTC)</translation>
    </message>
    <message>
        <source>Location comment</source>
        <translation>Acceso y ubicación</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Comentario</translation>
    </message>
    <message>
        <source>Clearance of house grid (m)</source>
        <translation>Altura libre bajo peine (m)</translation>
    </message>
    <message>
        <source>Upload date</source>
        <translation>Subido el</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editado por</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::FoldingIcon</name>
    <message>
        <source>Expand venue details</source>
        <translation>Desplegar los detalles del recinto</translation>
    </message>
    <message>
        <source>Collapse venue details</source>
        <translation>Plegar los detalles del recinto</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureFullscreenDialog</name>
    <message>
        <source>Could not save file. Sorry.</source>
        <translation>Lo sentimos, no se pudo guardar el archivo.</translation>
    </message>
    <message>
        <source>Saved &quot;%1&quot;</source>
        <translation>«%1» guardado</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>No se puede escribir %1</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 ya existe.
¿Quiere reemplazarlo?</translation>
    </message>
    <message>
        <source>Save Image As...</source>
        <translation>Guardar imagen como...</translation>
    </message>
    <message>
        <source>Save Image As</source>
        <translation>Guardar imagen como</translation>
    </message>
    <message>
        <source>Venue database pictures</source>
        <translation>Imágenes de la base de datos de recintos</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>Plus and Minus zoom, Page Up shows the next picture and Page Down the previous one, Ctrl+S saves.</source>
        <translation>Más y Menos cambian el zoom, Re Pág muestra la imagen siguiente y Av Pág la anterior, Ctrl+S guarda.</translation>
    </message>
    <message>
        <source>Loading large image...</source>
        <translation>Cargando imagen grande...</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureNavigationButton</name>
    <message>
        <source>Previous picture</source>
        <translation>Imagen anterior</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Imagen siguiente</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureSlider</name>
    <message>
        <source>No Image</source>
        <translation>Sin imagen</translation>
    </message>
    <message>
        <source>Venue pictures</source>
        <translation>Imágenes del recinto</translation>
    </message>
    <message>
        <source>Show pictures full screen</source>
        <translation>Mostrar imágenes a pantalla completa</translation>
    </message>
    <message>
        <source>Image failure</source>
        <translation>Error de imagen</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::TsFileOpener</name>
    <message>
        <source>File selector: </source>
        <translation>Archivo de modelo: </translation>
    </message>
    <message>
        <source>Import to Tessra</source>
        <translation>Importar a Tessra</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbCentralWidget</name>
    <message>
        <source>To conduct a targeted search, please enter search terms or single letters in the fields below and click Search. To view the complete result list, click Reset.</source>
        <translation>Para una búsqueda concreta, introduzca términos o letras sueltas en los campos siguientes y haga clic en «Buscar». Para ver la lista completa, haga clic en «Restablecer».</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Restablecer</translation>
    </message>
    <message>
        <source>Venues</source>
        <translation>Recintos</translation>
    </message>
    <message>
        <source>The venues that were found. Select one to see its details.</source>
        <translation>Los recintos encontrados. Seleccione uno para ver sus detalles.</translation>
    </message>
    <message>
        <source>Sort by %1</source>
        <translation>Ordenar por «%1»</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Unable to connect to server. 
Please check your internet connection.</source>
        <translation>No se puede conectar con el servidor. 
Compruebe su conexión a Internet.</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>Cargando...</translation>
    </message>
    <message>
        <source>Height of the venue table</source>
        <translation>Altura de la tabla de recintos</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialog</name>
    <message>
        <source>Venue database</source>
        <translation>Base de datos de recintos</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialogBase</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDetailsWidget</name>
    <message>
        <source>Venue details</source>
        <translation>Detalles del recinto</translation>
    </message>
    <message>
        <source>Name of overall multi-venue building or campus (identical to Venue name if there is only one event venue in the building/on the campus).</source>
        <translation>Nombre del edificio o conjunto completo con varios recintos (idéntico al nombre del recinto si solo hay uno en el edificio o conjunto).</translation>
    </message>
    <message>
        <source>Name of the specific venue/room within the multi-venue building/campus (identical to Complex name if there is only one venue in the building).</source>
        <translation>Nombre del recinto o de la sala dentro del complejo (idéntico al nombre del complejo si solo hay un recinto en el edificio).</translation>
    </message>
    <message>
        <source>Official address of venue.</source>
        <translation>Dirección oficial del recinto.</translation>
    </message>
    <message>
        <source>Anything that is important to know when accessing the venue, such as &quot;try to arrive before 9am to avoid terrible traffic&quot;.</source>
        <translation>Todo lo que conviene saber para acceder al recinto, por ejemplo «llegar antes de las 9 para evitar el tráfico intenso».</translation>
    </message>
    <message>
        <source>If the street address of the loading dock is not the same as the official loading dock address, please enter here.</source>
        <translation>Indique aquí la dirección del muelle de carga si no coincide con la dirección oficial del muelle.</translation>
    </message>
    <message>
        <source>If there are any peculiarities about the dock (e.g. &quot;difficult to reverse into&quot;, or &quot;freight elevator only&quot;), please note them here.</source>
        <translation>Anote aquí las particularidades del muelle (p. ej., «difícil de entrar marcha atrás» o «solo montacargas»).</translation>
    </message>
    <message>
        <source>To calculate how much actual rigging height is going to be available considering production-specific pre-riggs and chain motors.</source>
        <translation>Para calcular la altura de rigging realmente disponible teniendo en cuenta los pre-rigs y los motores de cadena de cada producción.</translation>
    </message>
    <message>
        <source>Any specialties or unusual restrictions, such as &quot;all points have to be bridled&quot; or &quot;no access to catwalk, all points have to be set via cherry picker&quot;.</source>
        <translation>Particularidades o restricciones poco habituales, como «todos los puntos deben colgarse con bridle» o «sin acceso a la pasarela técnica, todos los puntos con plataforma elevadora».</translation>
    </message>
    <message>
        <source>labelKorvelCaptionSmall</source>
        <translation>labelKorvelCaptionSmall</translation>
    </message>
    <message>
        <source>Loading dock, %1</source>
        <translation>Muelle de carga, %1</translation>
    </message>
    <message>
        <source>Rigging, %1</source>
        <translation>Rigging, %1</translation>
    </message>
</context>
</TS>
