// Files through the page: a key frame list saved with the file chooser and opened again, and a
// movie exported through the Export Options dialog, fetched from the page's download link and
// counted by ffprobe.

import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import { before, describe, it } from 'node:test';

import {
    appendViews, assertEventually, button, chooseDialogMenu, chooseFile, controlState, dialog, listLines,
    openKeyFrames, prompt, selectLines, typeInto, useStudio, waitForLines,
} from './person.mjs';
import { ffprobeFrames, temporaryFolder } from './support/studio.mjs';

// Chooses an option menu's entry by the label beside the menu, and waits for the host to take it.
async function chooseOption(page, dialogLocator, label, entry) {
    const menu = dialogLocator.getByRole('combobox', { name: label, exact: true });
    await menu.selectOption({ label: entry });
    await assertEventually(async () => {
        const state = await controlState(page, menu);
        assert.equal(state.items[state.choice - 1], entry);
    });
}

describe('files', () => {
    const session = useStudio();
    let root;
    let page;
    let keyFrames;

    before(async () => {
        ({ page } = session);
        root = session.studio.cwd;
        keyFrames = await openKeyFrames(page);
        await appendViews(page, keyFrames, 2);
    });

    it('saves the key frames under a new name and opens them again', async () => {
        await chooseDialogMenu(keyFrames, 'File', 'Save Animation File As...');
        await chooseFile(page, 'mine.keyframe');
        const saved = path.join(root, 'mine.keyframe');
        await assertEventually(async () => assert.ok(fs.readFileSync(saved, 'utf8').startsWith('#!KeyFrame')));

        await button(keyFrames, 'Clear').click();
        await assertEventually(async () => assert.ok(!(await listLines(keyFrames)).includes('View 1')));

        await chooseDialogMenu(keyFrames, 'File', 'Open Animation File...');
        const chooser = prompt(page);
        await chooser.locator('.file-entry[data-name="mine.keyframe"]').click();
        assert.equal(await chooser.locator('.file-name').inputValue(), 'mine.keyframe');
        await chooser.getByRole('button', { name: 'OK', exact: true }).click();
        await chooser.waitFor({ state: 'detached' });
        await waitForLines(keyFrames, ['View 1', 'View 2']);
    });

    it('exports the animation to MP4 and offers it for download', async () => {
        const count = 6;
        await selectLines(keyFrames, [1, 2]);
        const field = await typeInto(keyFrames, 'Frame Count:', String(count));
        await assertEventually(async () => assert.equal((await controlState(page, field)).text, String(count)));
        await chooseOption(page, keyFrames, 'Destination:', 'To File');

        await button(keyFrames, 'Animate All').click();
        const options = dialog(page, 'Export Options');
        await options.waitFor();
        assert.equal(await options.getAttribute('aria-modal'), 'true');
        await chooseOption(page, options, 'Format:', 'MPEG-4');
        await button(options, 'OK').click();
        await chooseFile(page, 'movie.mp4');
        await options.waitFor({ state: 'detached' });

        const link = page.locator('#downloads a', { hasText: 'movie.mp4' });
        await link.waitFor({ timeout: 120000 });
        await page.locator('#progress').waitFor({ state: 'hidden', timeout: 120000 });
        assert.equal(await page.locator('#downloads video').count() >= 1, true);

        // Fetched as the page fetches it: with the page's cookie.
        const response = await page.request.get(new URL(await link.getAttribute('href'), page.url()).href);
        assert.equal(response.status(), 200);
        const movie = path.join(await temporaryFolder(), 'movie.mp4');
        fs.writeFileSync(movie, await response.body());
        // Two key frames, `count` frames from the first to the second, and the last one itself.
        assert.equal(await ffprobeFrames(movie), count + 1);
    });
});
