// The README's picture of the studio: the Key Frame Animation dialog beside the view with a few
// key frames, written to $STUDIO_ARTIFACTS/studio.png.

import assert from 'node:assert/strict';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { after, before, describe, it } from 'node:test';

import { appendViews, openKeyFrames, selectLines } from './person.mjs';
import { launchBrowser, openStudio, startStudio } from './support/studio.mjs';

describe('the studio screenshot', () => {
    let studio;
    let browser;

    before(async () => {
        const root = fs.mkdtempSync(path.join(os.tmpdir(), 'studio-shot-'));
        studio = await startStudio({ args: ['--root', root], cwd: root });
        browser = await launchBrowser();
    });

    after(async () => {
        await browser?.close();
        await studio?.stop();
    });

    it('shows the Key Frame Animation dialog beside the view', async () => {
        const page = await openStudio(browser, studio, { width: 1600, height: 860 });
        const keyFrames = await openKeyFrames(page);
        await appendViews(page, keyFrames, 4, { dx: 40, dy: 0 });
        await selectLines(keyFrames, [2]);
        // The full-quality picture follows the drags' half-size ones 150 ms after the last move.
        await page.waitForTimeout(500);
        const folder = process.env.STUDIO_ARTIFACTS || fs.mkdtempSync(path.join(os.tmpdir(), 'studio-artifacts-'));
        fs.mkdirSync(folder, { recursive: true });
        const file = path.join(folder, 'studio.png');
        await page.screenshot({ path: file });
        assert.ok(fs.statSync(file).size > 10000);
    });
});
