// The studio's page: wires the modules to one connection and exposes window.studio for tests
// (docs/studio.md; the hooks are listed in the README's studio section).

import { Connection } from './connection.js';
import { Dialogs } from './dialogs.js';
import { showDownloads } from './downloads.js';
import { hostMenus } from './menus.js';
import { showNotices } from './notices.js';
import { showProgress } from './progress.js';
import { Prompts } from './prompts.js';
import { View } from './view.js';
import { WindowManager } from './windows.js';

const studio = {
    state: {},
    connected: false,
    framesDrawn: 0,
    latencies: [],
};
window.studio = studio;

const connection = new Connection(studio);
const windows = new WindowManager(document.getElementById('windows'), document.getElementById('app'));
showNotices(connection);
hostMenus(studio, connection, document.getElementById('menubar'));
const view = new View(studio, connection);
new Dialogs(studio, connection, windows);
new Prompts(studio, connection, windows);
showProgress(studio, connection);
showDownloads(studio, connection);
studio.fit = () => view.fit();
connection.connect();
