#pragma once

class Connection;
class Simulator;

// What the application does, one function a step. Each is true when the device and the model have
// become what they should.

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

/// A power supply fails and a source changes; the device reports both of its own accord.
bool followsWhatHappensThere(Connection &connection, Simulator &simulator);
