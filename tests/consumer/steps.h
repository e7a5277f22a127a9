#pragma once

class Connection;
class Simulator;

// The steps of the application, one function each. A step returns true if it has its effect on the
// device and in the model.

bool readsIntoTheModel(Connection &connection);
bool takesANewName(Connection &connection);
bool refusesWhatIsOutOfRange(Connection &connection);
bool storesAPreset(Connection &connection);
bool movesALayer(Connection &connection);
bool takes(Connection &connection);
bool freezesAndFadesToBlack(Connection &connection);
bool appliesThePreset(Connection &connection);
bool sendsAFileAndFetchesIt(Connection &connection);
bool followsAnUpgrade(Connection &connection);
bool readsTheNewVersion(Connection &connection);
bool followsReports(Connection &connection);
bool printsRecords(Connection &connection);
bool sendsRecordsOfItsOwn(Connection &connection);
bool callsByName(Connection &connection);
bool describesOperations(Connection &connection);

/// A power supply fails and a source changes; the device reports both unsolicited.
bool followsWhatHappensThere(Connection &connection, Simulator &simulator);
