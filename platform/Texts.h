#pragma once

/// The texts that several units show to the user, each once. A text of one unit stands at the head of its file.
namespace vk {

/// Title of the plain boxes for which none is told.
inline constexpr const char* kProgramTitle = "VOR_KEL";

/// Of a function that has no value at a point.
inline constexpr const char* kCalculationFailed = "Errori nel Calcolo della Funzione";

/// Title of the plain boxes of the fit.
inline constexpr const char* kErrorTitle = "ERRORE !";

// Captions of buttons, "&" before the access key.
inline constexpr const char* kContinueButton = "&Continua";
inline constexpr const char* kGiveUpButton = "&Rinuncia";
inline constexpr const char* kAcceptButton = "&Accetta";
inline constexpr const char* kExecuteButton = "&Esegui";
inline constexpr const char* kRetryButton = "&Riprova";
inline constexpr const char* kPrintButton = "&Stampa";
inline constexpr const char* kCopyButton = "Co&pia";
inline constexpr const char* kSaveFileButton = "Salva &File";
inline constexpr const char* kWideYesButton = "  &Si  ";
inline constexpr const char* kWideNoButton = "  &No  ";

// What the plain boxes end with.
inline constexpr const char* kPressToContinue = "     <*> per Continuare";
inline constexpr const char* kPressToContinueClose = "  <*> per Continuare";

// Captions of the commands on files.
inline constexpr const char* kReadCaption = "VOR_KEL: Lettura File ";
inline constexpr const char* kEditCaption = "VOR_KEL: Modifica File ";
/// Behind the caption over a list of errors.
inline constexpr const char* kErrorListSuffix = " - ERRORI";

/// The first filter of the dialogs that ask for a file.
inline constexpr const char* kAllFilesFilter = "Tutti i File (*.*)|*.*|";
/// Before and behind the name of a file that cannot be written.
inline constexpr const char* kWrongName[] = {"Specificazione File: ", " ERRATA!"};

/// Caption of the form and of the screen of the propagation of errors.
inline constexpr const char* kPropagationCaption = "VOR_KEL: Propagazione Errori";

/// Above the function on a form.
inline constexpr const char* kFunctionHead = "Funzione";

// The kinds of file.
inline constexpr const char* kDataWord = "Dati";
inline constexpr const char* kFunctionsWord = "Funzioni";
inline constexpr const char* kGraphicWord = "Grafico";

/// What a figure or its file shows.
inline constexpr const char* kDataAndFunction = "Dati e Funzione";

/// Above numbers.
inline constexpr const char* kValueHead = "Valore";

/// Before the name of a file.
inline constexpr const char* kTheFile = "Il File ";
/// In the place of the name of a file that is not there.
inline constexpr const char* kNoFile = "Nessuno";

/// Before the name of a formula that does not compile.
inline constexpr const char* kBadDefinition = "Errore nella Definizione di ";

}  // namespace vk
