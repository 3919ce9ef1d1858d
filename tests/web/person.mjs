// What a person does on the studio's page, in the page's own words: menus by their names, dialogs
// by their titles, controls by their labels (the add-on's, keyframe/ui/*.cpp), and what the page
// shows back. The browser tests share these steps; the harness (support/studio.mjs) starts the
// host and the browser.

import assert from 'node:assert/strict';
import { after, before } from 'node:test';

import { launchBrowser, openStudio, startStudio } from './support/studio.mjs';

export const KEY_FRAMES = 'Key Frame Animation';
const WAIT_MS = 20000;

// One studio for the tests of a describe block: a server in a folder of its own, a browser, and
// the page at the given size, filled in before the first test. The harness closes the browser;
// stopping the server here checks that it exits cleanly.
export function useStudio(viewport) {
    const session = {};
    before(async () => {
        session.studio = await startStudio();
        session.browser = await launchBrowser();
        session.page = await openStudio(session.browser, session.studio, viewport);
    });
    after(async () => {
        await session.studio?.stop();
    });
    return session;
}

// Chooses a host menu's item, as a click on the menu and one on the item.
export async function chooseMenu(page, menu, item) {
    await page.locator('#menubar').getByRole('button', { name: menu, exact: true }).click();
    await page.locator('#menubar').getByRole('menuitem', { name: item, exact: true }).click();
}

// The add-on's dialog of that title (not a prompt).
export function dialog(page, title) {
    return page.locator('.dialog[role=dialog]:not(.prompt)').filter({
        has: page.locator('.dialog-title', { hasText: new RegExp(`^${title.replace(/[.*+?^${}()|[\]\\]/g, '\\$&')}$`) }),
    });
}

// Animate > Key Frame Animation..., and the dialog that opens.
export async function openKeyFrames(page) {
    await chooseMenu(page, 'Animate', 'Key Frame Animation...');
    const keyFrames = dialog(page, KEY_FRAMES);
    await keyFrames.waitFor({ timeout: WAIT_MS });
    return keyFrames;
}

// A button of a dialog by its label as plain text ("Append", "Animate All").
export function button(dialogLocator, name) {
    return dialogLocator.getByRole('button', { name, exact: true });
}

// A dialog's menu bar entry: the menu, then the item.
export async function chooseDialogMenu(dialogLocator, menu, item) {
    await dialogLocator.locator('.dialog-menubar').getByRole('button', { name: menu, exact: true }).click();
    await dialogLocator.locator('.dialog-menubar').getByRole('menuitem', { name: item, exact: true }).click();
}

// The lines of the dialog's list as shown.
export async function listLines(dialogLocator) {
    return dialogLocator.getByRole('listbox').getByRole('option').allTextContents();
}

export async function waitForLines(dialogLocator, lines) {
    await assertEventually(async () => assert.deepEqual(await listLines(dialogLocator), lines));
}

// Clicks list lines as a person: the first plainly, the others with Ctrl.
export async function selectLines(dialogLocator, lines) {
    const list = dialogLocator.getByRole('listbox');
    for (const [index, line] of lines.entries()) {
        await list.getByRole('option').nth(line - 1).click({ modifiers: index === 0 ? [] : ['Control'] });
    }
    await assertEventually(async () => {
        const selected = await list.locator('[aria-selected=true]').evaluateAll((os) => os.map((o) => Number(o.dataset.line)));
        assert.deepEqual(selected, lines);
    });
}

// Types into the text field named by the label beside it and commits it with Enter.
export async function typeInto(dialogLocator, label, text) {
    const field = dialogLocator.getByRole('textbox', { name: label, exact: true });
    await field.fill(text);
    await field.press('Enter');
    return field;
}

// The host's state of a control as the page holds it.
export async function controlState(page, locator) {
    const id = await locator.evaluate((e) => e.closest('[data-control-id]').dataset.controlId);
    return page.evaluate((key) => window.studio.state[key], `control/${id}`);
}

// The view status under the view, as numbers.
export async function viewStatus(page) {
    return page.locator('#view-status').evaluate((e) => ({
        psi: Number(e.dataset.psi),
        theta: Number(e.dataset.theta),
        alpha: Number(e.dataset.alpha),
        width: Number(e.dataset.width),
        position: (e.dataset.position || '').split(' ').map(Number),
    }));
}

// A point of the view that no dialog covers, as a person would pick it.
export async function viewPoint(page) {
    return page.evaluate(() => {
        const canvas = document.getElementById('view');
        const box = canvas.getBoundingClientRect();
        for (const [fx, fy] of [[0.5, 0.5], [0.25, 0.5], [0.2, 0.7], [0.15, 0.3], [0.5, 0.85]]) {
            const x = box.left + box.width * fx;
            const y = box.top + box.height * fy;
            if (document.elementFromPoint(x, y) === canvas) return { x, y };
        }
        throw new Error('the dialogs cover the view');
    });
}

// A drag over the view in steps, with the buttons and keys given.
export async function dragView(page, { dx = 120, dy = 60, button = 'left', modifiers = [] } = {}) {
    const { x, y } = await viewPoint(page);
    for (const key of modifiers) await page.keyboard.down(key);
    await page.mouse.move(x, y);
    await page.mouse.down({ button });
    await page.mouse.move(x + dx, y + dy, { steps: 8 });
    await page.mouse.up({ button });
    for (const key of modifiers) await page.keyboard.up(key);
}

// The prompt (message box, question, file chooser) the host waits for.
export function prompt(page) {
    return page.locator('.dialog.prompt[role=alertdialog]');
}

// Answers the file chooser with a name typed in the folder shown (the first root).
export async function chooseFile(page, name) {
    const chooser = prompt(page);
    await chooser.locator('.file-name').waitFor({ timeout: WAIT_MS });
    await chooser.locator('.file-name').fill(name);
    await chooser.getByRole('button', { name: 'OK', exact: true }).click();
    await chooser.waitFor({ state: 'detached', timeout: WAIT_MS });
}

// Polls an assertion until it holds or the time is up (then its last failure is thrown).
export async function assertEventually(check, timeoutMs = WAIT_MS) {
    const end = Date.now() + timeoutMs;
    for (;;) {
        try {
            return await check();
        } catch (error) {
            if (Date.now() > end) throw error;
            await new Promise((resolve) => setTimeout(resolve, 100));
        }
    }
}

// Appends n key frames with the dialog's Append button, turning the view between them by a drag
// of turn pixels.
export async function appendViews(page, keyFrames, n, turn = { dx: 80, dy: 20 }) {
    const before = (await listLines(keyFrames)).filter((l) => /^View \d+$/.test(l)).length;
    for (let i = 0; i < n; ++i) {
        if (i > 0) {
            const status = await viewStatus(page);
            await dragView(page, turn);
            await assertEventually(async () => assert.notDeepEqual(await viewStatus(page), status));
        }
        await button(keyFrames, 'Append').click();
        await waitForLines(keyFrames, Array.from({ length: before + i + 1 }, (_, k) => `View ${k + 1}`));
    }
}

// The view status once it stopped changing for a moment (after a Fit, say).
export async function settledStatus(page, quietMs = 400) {
    let last = JSON.stringify(await viewStatus(page));
    for (;;) {
        await page.waitForTimeout(quietMs);
        const now = JSON.stringify(await viewStatus(page));
        if (now === last) return JSON.parse(now);
        last = now;
    }
}
