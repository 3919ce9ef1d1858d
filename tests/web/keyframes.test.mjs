// The Key Frame Animation dialog as a person uses it on the page: opened from the Animate menu,
// key frames appended between turns of the view, a frame count typed, the list animated on screen
// and an animation stopped. Labels are the add-on's own (keyframe/ui/DialogMain.cpp).

import assert from 'node:assert/strict';
import { before, describe, it } from 'node:test';

import {
    appendViews, assertEventually, button, controlState, listLines, openKeyFrames, prompt, selectLines, typeInto, useStudio,
} from './person.mjs';

describe('the Key Frame Animation dialog', () => {
    const session = useStudio();
    let page;
    let keyFrames;

    before(async () => {
        ({ page } = session);
    });

    it('opens from Animate > Key Frame Animation...', async () => {
        keyFrames = await openKeyFrames(page);
        assert.equal(await keyFrames.getAttribute('role'), 'dialog');
        assert.equal(await keyFrames.locator('.dialog-title').textContent(), 'Key Frame Animation');
        for (const name of ['Append', 'Insert', 'Animate All', 'Close', 'Help']) {
            assert.equal(await button(keyFrames, name).count(), 1, name);
        }
    });

    it('lists three views appended between drags as View 1 to View 3', async () => {
        await appendViews(page, keyFrames, 3);
        assert.deepEqual(await listLines(keyFrames), ['View 1', 'View 2', 'View 3']);
    });

    it('takes a frame count typed and committed with Enter', async () => {
        await selectLines(keyFrames, [1]);
        const field = await typeInto(keyFrames, 'Frame Count:', '12');
        await assertEventually(async () => assert.equal((await controlState(page, field)).text, '12'));
        assert.equal(await field.inputValue(), '12');
        // The count is the key frame's: another line shows its own, the first one 12 again.
        await selectLines(keyFrames, [2]);
        await assertEventually(async () => assert.equal(await field.inputValue(), '30'));
        await selectLines(keyFrames, [1]);
        await assertEventually(async () => assert.equal(await field.inputValue(), '12'));
    });

    it('animates all on screen with progress, drawing frames during the run', async () => {
        // Some hundreds of frames, so the run lasts long enough to be watched.
        await selectLines(keyFrames, [1, 2]);
        await typeInto(keyFrames, 'Frame Count:', '400');
        await assertEventually(async () => {
            const field = keyFrames.getByRole('textbox', { name: 'Frame Count:', exact: true });
            assert.equal((await controlState(page, field)).text, '400');
        });
        // Pictures counted while the progress shows, watched from before the press: the page draws
        // the run, not only its end.
        const watched = page.evaluate(() => new Promise((resolve) => {
            const counts = [];
            const giveUp = Date.now() + 60000;
            const timer = setInterval(() => {
                const showing = !document.getElementById('progress').hidden;
                if (showing) counts.push(window.studio.framesDrawn);
                if ((!showing && counts.length > 0) || Date.now() > giveUp) {
                    clearInterval(timer);
                    counts.push(window.studio.framesDrawn);
                    resolve(counts);
                }
            }, 5);
        }));
        await button(keyFrames, 'Animate All').click();
        const seen = await watched;
        assert.ok(seen.length > 2, 'the progress showed');
        assert.ok(seen[seen.length - 1] > seen[0], `frames drawn while the progress showed: ${seen[0]} -> ${seen[seen.length - 1]}`);
        assert.equal(await prompt(page).count(), 0);
    });

    it('stops a long animation with Stop and says so', async () => {
        await selectLines(keyFrames, [1, 2, 3]);
        // Enough frames that computing their views alone takes the host many seconds: Stop comes
        // mid-run however fast the machine draws.
        await typeInto(keyFrames, 'Frame Count:', '50000');
        await assertEventually(async () => {
            const field = keyFrames.getByRole('textbox', { name: 'Frame Count:', exact: true });
            assert.equal((await controlState(page, field)).text, '50000');
        });
        await button(keyFrames, 'Animate All').click();
        await page.locator('#progress').waitFor({ state: 'visible' });
        await assertEventually(async () => assert.ok(await page.locator('#progress-bar').evaluate((bar) => bar.value) >= 1));
        await page.locator('#stop-button').click();
        const canceled = prompt(page);
        await canceled.waitFor({ timeout: 60000 });
        assert.equal(await canceled.locator('.prompt-text').textContent(), 'Animation canceled.');
        await canceled.getByRole('button', { name: 'OK', exact: true }).click();
        await canceled.waitFor({ state: 'detached' });
        await page.locator('#progress').waitFor({ state: 'hidden' });
    });
});
